#include "qml/enginedouble.h"
#include "support/testprogram.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// Provides each test document with the module and the engine.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *qmlEngine)
    {
        qmlEngine->addImportPath(testsupport::qmlDir());
        // The engine of the previous document has the same address, so it is destroyed first.
        m_engine.reset();
        m_engine.reset(new EngineDouble);
        qmlEngine->rootContext()->setContextProperty(QStringLiteral("engine"), m_engine.data());
    }

private:
    QScopedPointer<EngineDouble> m_engine;
};

QUICK_TEST_MAIN_WITH_SETUP(zeltaconnect, Setup)
#include "tst_documents.moc"
