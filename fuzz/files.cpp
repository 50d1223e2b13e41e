// Files with any content as firmware headers and catalogues.

#include "fuzz/support/module.h"
#include "fuzz/support/require.h"
#include "transfer/qconnectfirmware.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace fuzz;

namespace {

void checkVersions(qconnectfirmware &engine, const QString &path, const QByteArray &content)
{
    const int zelta = engine.searchZeltaFwVersionInfo(path);
    require(zelta == -1 || content.left(100).contains("4810QN-"), "a version requires its prefix");
    const int trigger = engine.searchTriggerFwVersionInfo(path);
    require(trigger == -1 || content.startsWith("TGFW"),
            "a version of the trigger board requires its prefix");

    // Missing bytes of a short header count as zeros.
    const QString padded = writeFile(QStringLiteral("padded"), content.leftJustified(8, '\0'));
    require(trigger == engine.searchTriggerFwVersionInfo(padded),
            "a truncated header reads as one padded with zeros");
}

void checkCatalogues(QConnectQmlPlugin &module, const QString &path, const QByteArray &content)
{
    require(module.parseJsonFile(path).size() <= content.size(),
            "the text of a catalogue is at most as long as its file");
    const QJsonObject object = module.parseSoundBankList(path);
    require(object == module.parseTriggerBankList(path), "both catalogues are read in the same way");
    require(module.backupSoundBankList(path) == 0 && module.backupTriggerBankList(path) == 0,
            "a readable file is backed up");
    const QString copy = filesDirectory() + QStringLiteral("soundBank.json");
    require(module.parseSoundBankList(copy) == object, "a backup reads like its source");
    require(module.backupSoundBankList(copy) == 0 && module.parseSoundBankList(copy) == object,
            "a catalogue that is backed up from itself stays unchanged");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    module();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static qconnectfirmware *const engine = new qconnectfirmware(&module(), nullptr);
    const QByteArray content(reinterpret_cast<const char *>(data), int(size));
    const QString path = writeFile(QStringLiteral("input"), content);
    checkVersions(*engine, path, content);
    checkCatalogues(module(), path, content);
    engine->getBtFwSlotId(QString::fromUtf8(content));
    return 0;
}
