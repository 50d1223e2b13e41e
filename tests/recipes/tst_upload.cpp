// The recipe for uploads: each way in which a file ends that a screen must tell apart. All files of the test
// are sent at the same time, each to an engine of its own, at 127.20.42.10 and above.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"

#include <QFile>
#include <QTemporaryDir>

#include <vector>

using namespace testsupport;

namespace {

// The values of FileTransfer.Kind.
constexpr int triggerFirmware = 2;
#ifndef ZELTACONNECT_LONG_CASES
constexpr int soundBank = 3;
constexpr int triggerBank = 4;
constexpr int waveImport = 6;

// Even on a busy machine, the engine's answer to an early packet arrives before the end of such a file.
constexpr int longBankBytes = 10 * 1024 * 1024;
#endif

struct Case
{
    const char *name;
    const char *failure;
    int kind;
    QByteArray content;
    const char *advice; // begins with
};

[[maybe_unused]] QByteArray firmware(char minor)
{
    return QByteArray("TGFW", 4) + minor + QByteArray("\x00\x01\x00", 3) + QByteArray(3000, 'f');
}

// The engine has version 1.4 of the trigger board.
std::vector<Case> cases()
{
    const QByteArray bank(50000, 'b');
#ifndef ZELTACONNECT_LONG_CASES
    const QByteArray longBank(longBankBytes, 'b');
#endif
    std::vector<Case> all = {
#ifdef ZELTACONNECT_LONG_CASES
        {"engine is silent", "no-query-reply", triggerFirmware, bank, "Switch the engine off and on."},
#else
        {"sent", "", soundBank, bank, "Sent."},
        {"sent after a resend", "resend=5", soundBank, bank, "Sent."},
        {"newer firmware", "", triggerFirmware, firmware(5), "Sent."},
        {"same firmware", "", triggerFirmware, firmware(4), "Nothing to do."},
        {"memory full", "memory-full-e1=5", soundBank, longBank, "Delete samples, then send the file again."},
        {"refused", "refuse-e4=5", soundBank, longBank, "This file is not for this engine."},
        {"damaged", "bad-checksum", soundBank, bank, "Send the file again."},
        {"aborted", "resend-past-end=5", triggerBank, longBank, "Send the file again."},
        {"not acknowledged", "no-end-ack", triggerBank, bank,
         "It is not known whether the engine has the file."},
        {"engine vanishes", "vanish=5", triggerBank, bank,
         "It is not known whether the engine has the file."},
        {"empty file", "", soundBank, QByteArray(), "Choose another file."},
        {"no firmware", "", triggerFirmware, bank, "Choose another file."},
#endif
    };
    return all;
}

} // namespace

class UploadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void outcomes_data();
    void outcomes();
#ifndef ZELTACONNECT_LONG_CASES
    void notBegun_data();
    void notBegun();
    void withoutEngine();
#endif
    void cancelled();

private:
    QTemporaryDir m_files;
    std::vector<Case> m_cases = cases();
    std::vector<std::unique_ptr<Recipe>> m_screens;
};

void UploadTest::initTestCase()
{
    for (const Case &each : m_cases) {
        const int number = int(m_screens.size());
        m_screens.push_back(std::make_unique<Recipe>(
            QStringLiteral("Upload.qml"),
            QStringLiteral("127.20.42.%1").arg(ZELTACONNECT_FIRST_ENGINE + number), [&](SoundEngine &engine) {
                engine.setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
                if (*each.failure)
                    QVERIFY(engine.setFailure(QLatin1String(each.failure)));
            }));
        const Recipe &screen = *m_screens.back();
        QVERIFY2(screen.root(), qPrintable(screen.errorString()));
        QFile file(m_files.filePath(QStringLiteral("%1.bin").arg(number)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(each.content) == each.content.size());
        file.close();
        QVERIFY(screen.root()->setProperty("kind", each.kind));
        QVERIFY(screen.root()->setProperty("source", file.fileName()));
        QVERIFY(QMetaObject::invokeMethod(screen.root(), "send"));
    }
}

void UploadTest::outcomes_data()
{
    QTest::addColumn<int>("number");
    for (size_t i = 0; i < m_cases.size(); ++i)
        QTest::newRow(m_cases[i].name) << int(i);
}

void UploadTest::outcomes()
{
    QFETCH(int, number);
    const Case &expected = m_cases[size_t(number)];
    const Recipe &screen = *m_screens[size_t(number)];
    const auto result = [&screen] {
        return screen.root()->property("result").toString();
    };
    QTRY_VERIFY_WITH_TIMEOUT(!result().isEmpty(), patienceMs);
    QVERIFY2(result().startsWith(QLatin1String(expected.advice)), qPrintable(result()));
}

#ifndef ZELTACONNECT_LONG_CASES
void UploadTest::notBegun_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("source");
    QTest::addColumn<double>("slot");
    QTest::addColumn<QString>("advice"); // begins with
    const QString bank = m_files.filePath(QStringLiteral("0.bin"));
    const QString large = m_files.filePath(QStringLiteral("large.bin"));
    QFile file(large);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(Q_INT64_C(1) << 32));
    QTest::newRow("no kind") << 0 << bank << -1.0
                             << "Choose the kind of the file. There is no kind 0 of files.";
    QTest::newRow("import without a slot") << waveImport << bank << -1.0 << "Change the slot. A wave sample";
    QTest::newRow("slot too high") << waveImport << bank << 65536.0 << "Change the slot. A wave sample";
    QTest::newRow("slot of a bank") << soundBank << bank << 3.0 << "Change the slot. There are no slots";
    QTest::newRow("no source") << soundBank << QString() << -1.0
                               << "Choose another file. The source \"\" is neither";
    QTest::newRow("relative path") << soundBank << "kit.bin" << -1.0
                                   << "Choose another file. The source \"kit.bin\" is neither";
    QTest::newRow("file of a server") << soundBank << "http://server/kit.bin" << -1.0
                                      << "Choose another file. The source \"http://server/kit.bin\" is not";
    QTest::newRow("missing file") << soundBank << m_files.filePath(QStringLiteral("missing.bin")) << -1.0
                                  << "Choose another file. There is no file";
    QTest::newRow("folder") << soundBank << m_files.path() << -1.0
                            << QStringLiteral("Choose another file. %1 is not a file").arg(m_files.path());
    QTest::newRow("file too large")
        << soundBank << large << -1.0
        << QStringLiteral("Choose another file. The file %1 is 4 GiB or larger.").arg(large);
}

void UploadTest::notBegun()
{
    QFETCH(int, kind);
    QFETCH(QString, source);
    QFETCH(double, slot);
    QFETCH(QString, advice);
    const Recipe screen(QStringLiteral("Upload.qml"));
    QVERIFY(screen.root()->setProperty("kind", kind));
    QVERIFY(screen.root()->setProperty("source", source));
    QVERIFY(screen.root()->setProperty("slot", slot));
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "send"));
    const auto result = [&screen] {
        return screen.root()->property("result").toString();
    };
    QTRY_VERIFY_WITH_TIMEOUT(!result().isEmpty(), patienceMs);
    QVERIFY2(result().startsWith(advice), qPrintable(result()));
}

void UploadTest::withoutEngine()
{
    const Recipe screen(QStringLiteral("Upload.qml"));
    QVERIFY(screen.find("upload")->setProperty("engine", QVariant::fromValue<QObject *>(nullptr)));
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "send"));
    QCOMPARE(screen.root()->property("result").toString(),
             QStringLiteral("Start the screen again. There is no engine to send to."));
}
#endif

void UploadTest::cancelled()
{
    const Recipe screen(QStringLiteral("Upload.qml"));
    QFile file(m_files.filePath(QStringLiteral("cancelled.bin")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("bank") == 4);
    file.close();
    QVERIFY(screen.root()->setProperty("source", file.fileName()));
    QVERIFY(QMetaObject::invokeMethod(screen.root(), "send"));
    // The file has not begun, because it has not been checked yet.
    QVERIFY(screen.find("cancel")->property("enabled").toBool());
    screen.click("cancel");
    QVERIFY(screen.root()->property("result").toString().startsWith(QLatin1String("Not sent.")));
}

int main(int argc, char **argv)
{
    return runRecipes<UploadTest>(argc, argv);
}

#include "tst_upload.moc"
