// The recipe for versions and updates.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"

#include <QFile>
#include <QTemporaryDir>

using namespace testsupport;

namespace {

// Newer firmware of the engine takes long, because the module pauses for 20 s after it.
#ifdef ZELTACONNECT_LONG_CASES
constexpr bool isEngineNewer = true;
#else
constexpr bool isEngineNewer = false;
#endif

} // namespace

class VersionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void updates();

private:
    void write(const char *name, const QByteArray &content);

    QTemporaryDir m_folder;
};

void VersionsTest::write(const char *name, const QByteArray &content)
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

void VersionsTest::updates()
{
    using Version = SoundEngine::Version;
    Recipe recipe(QStringLiteral("Versions.qml"), QString(), [](SoundEngine &engine) {
        engine.setVersion(Version::SoundEngine, 1, 4);
        engine.setVersion(Version::TriggerBoard, 1, 4);
        engine.setVersion(Version::SoundBank, 2, 7);
        engine.setVersion(Version::TriggerBank, 1, 3);
    });
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QTRY_VERIFY_WITH_TIMEOUT(recipe.text("Sound bank").startsWith(QLatin1String("Sound bank: 2.07 ")),
                             patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(recipe.text("Trigger bank").startsWith(QLatin1String("Trigger bank: 1.03 ")),
                             patienceMs);

    const QByteArray engineVersion = isEngineNewer ? "1.05" : "1.04";
    write("engine.bin", "4810QN-abc" + engineVersion + " - sound engine " + QByteArray(3000, 'e'));
    write("board.bin", QByteArray("TGFW\x05\x00\x01\x00", 8) + QByteArray(3000, 't'));
    write("sounds.bin", QByteArray(20000, 's'));
    write("triggers.bin", QByteArray(10000, 'b'));
    connect(&recipe.engine(), &SoundEngine::transferEnded, this, [&](const simulated::ReceivedFile &file) {
        if (file.content == QLatin1String("SB"))
            recipe.engine().setVersion(Version::SoundBank, 2, 8);
    });
    QVERIFY(recipe.root()->setProperty("folder", m_folder.path()));
    QVERIFY(QMetaObject::invokeMethod(recipe.root(), "update"));
    QCOMPARE(recipe.root()->property("remaining").toInt(), 4);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.root()->property("remaining").toInt(), 0, patienceMs);

    QStringList contents;
    for (const simulated::ReceivedFile &file : recipe.engine().receivedFiles()) {
        contents += file.content;
        QCOMPARE(file.outcome, simulated::ReceivedFile::Outcome::Whole);
    }
    QStringList expected{QStringLiteral("TB"), QStringLiteral("SB"), QStringLiteral("TF")};
    if (isEngineNewer)
        expected += QStringLiteral("FW");
    QCOMPARE(contents, expected);
    const QString engineText = isEngineNewer
                                   ? QStringLiteral("Engine: 1.05  The engine has the file.")
                                   : QStringLiteral("Engine: 1.04  Version 1.04, which is installed");
    QVERIFY2(recipe.text("Engine").startsWith(engineText), qPrintable(recipe.text("Engine")));
    QCOMPARE(recipe.text("Trigger board"), QStringLiteral("Trigger board: 1.04  The engine has the file."));
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("Sound bank"),
                              QStringLiteral("Sound bank: 2.08  The engine has the file."), patienceMs);
}

int main(int argc, char **argv)
{
    return runRecipes<VersionsTest>(argc, argv);
}

#include "tst_versions.moc"
