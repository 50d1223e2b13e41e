#include "qml/enginedouble.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

/// Gives every test document the module to import and the engine to talk to.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *qmlEngine)
    {
        qmlEngine->addImportPath(QStringLiteral(ZELTACONNECT_QML_DIR));
        // One address, one engine: the previous document's goes first.
        m_engine.reset();
        m_engine.reset(new EngineDouble);
        qmlEngine->rootContext()->setContextProperty(QStringLiteral("engine"), m_engine.data());
    }

private:
    QScopedPointer<EngineDouble> m_engine;
};

QUICK_TEST_MAIN_WITH_SETUP(zeltaconnect, Setup)
#include "main.moc"
