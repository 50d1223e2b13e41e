#include "qml/enginedouble.h"
#include "support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariantMap>
#include <QtQuickTest>

#include <sys/stat.h>

/// Provides each test document with the modules, the engine and a few files.
class Setup : public QObject
{
    Q_OBJECT

public:
    Setup()
    {
        const QString odd = QStringLiteral("my [k]it*? 100%20 #1 \u00e4;.bin");
        // The larger ones have no blocks on disk.
        resize(QStringLiteral("bank"), QStringLiteral("bank.bin"), 5000);
        resize(QStringLiteral("odd"), odd, 5000);
        resize(QStringLiteral("dots"), QStringLiteral("..two..dots."), 5000);
        const QString deep = QStringLiteral("kits #1? 100%41 .");
        if (!QDir(m_dir.path()).mkpath(deep + QStringLiteral("/folder")))
            qFatal("no folder");
        resize(QStringLiteral("deep"), deep + QStringLiteral("/bank.bin"), 5000);
        m_files.insert(QStringLiteral("deepFolder"), m_dir.filePath(deep + QStringLiteral("/folder")));
        resize(QStringLiteral("empty"), QStringLiteral("empty.bin"), 0);
        resize(QStringLiteral("firmware"), QStringLiteral("firmware.bin"), 70LL * 1024 * 1024);
        resize(QStringLiteral("huge"), QStringLiteral("huge.bin"), 0x100000000LL);
        const QString pipe = m_dir.filePath(QStringLiteral("pipe"));
        if (::mkfifo(pipe.toLocal8Bit().constData(), S_IRUSR | S_IWUSR) != 0)
            qFatal("no pipe");
        m_files.insert(QStringLiteral("pipe"), pipe);
        m_files.insert(QStringLiteral("folder"), m_dir.path());
        m_files.insert(QStringLiteral("folderName"), QDir(m_dir.path()).dirName());
        m_files.insert(QStringLiteral("deepUrl"), urlOf(QStringLiteral("deep")));
        m_files.insert(QStringLiteral("bankUrl"), urlOf(QStringLiteral("bank")));
        m_files.insert(QStringLiteral("oddUrl"), urlOf(QStringLiteral("odd")));
    }

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *qmlEngine)
    {
        qmlEngine->addImportPath(testsupport::qmlDir());
        // The engine of the previous document has the same address, so it is destroyed first.
        m_engine.reset();
        m_engine.reset(new EngineDouble);
        qmlEngine->rootContext()->setContextProperty(QStringLiteral("engine"), m_engine.data());
        qmlEngine->rootContext()->setContextProperty(QStringLiteral("files"), m_files);
    }

private:
    void resize(const QString &key, const QString &name, qint64 size)
    {
        QFile file(m_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
            qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
        m_files.insert(key, file.fileName());
    }
    QUrl urlOf(const QString &key) const { return QUrl::fromLocalFile(m_files.value(key).toString()); }

    QTemporaryDir m_dir;
    QVariantMap m_files;
    QScopedPointer<EngineDouble> m_engine;
};

QUICK_TEST_MAIN_WITH_SETUP(companion, Setup)
#include "tst_documents.moc"
