// Files as they come from a stick: firmware headers and catalogues, whatever is in them.

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
    require(zelta == -1 || content.left(100).contains("4810QN-"), "a version needs its mark");
    const int trigger = engine.searchTriggerFwVersionInfo(path);
    require(trigger == -1 || content.startsWith("TGFW"), "a version of the trigger board needs its mark");

    // What a short file lacks of its header counts as zeros, not as what lies behind it in memory.
    const QString padded = writeFile(QStringLiteral("padded"), content.leftJustified(8, '\0'));
    require(trigger == engine.searchTriggerFwVersionInfo(padded),
            "a cut header reads as one filled with zeros");
}

void checkCatalogues(QConnectQmlPlugin &module, const QString &path, const QByteArray &content)
{
    require(module.parseJsonFile(path).size() <= content.size(),
            "a catalogue's text is not longer than its file");
    const QJsonObject object = module.parseSoundBankList(path);
    require(object == module.parseTriggerBankList(path), "both catalogues are read alike");
    require(module.backupSoundBankList(path) == 0 && module.backupTriggerBankList(path) == 0,
            "a readable file is backed up");
    const QString copy = filesDirectory() + QStringLiteral("soundBank.json");
    require(module.parseSoundBankList(copy) == object, "a backup reads like its source");
    require(module.backupSoundBankList(copy) == 0 && module.parseSoundBankList(copy) == object,
            "a catalogue survives being backed up from itself");
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
