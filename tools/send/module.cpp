#include "module.h"

#include "tools/shared/modulefolder.h"

#include <QFileInfo>
#include <QQmlComponent>
#include <QQmlError>

namespace {

void addFolder(QQmlEngine *engine, const QString &importDir)
{
    const QString folder = moduleFolder(importDir);
    if (!folder.isEmpty())
        engine->addImportPath(folder);
}

QUrl senderUrl()
{
    return QUrl(QStringLiteral("qrc:/zelta-send/sender.qml"));
}

QString errorOf(const QQmlComponent &component)
{
    return component.errors().isEmpty() ? QStringLiteral("the module has no object")
                                        : component.errors().constFirst().description();
}

} // namespace

Module::Module(const QString &importDir)
{
    addFolder(&m_engine, importDir);
    QQmlComponent component(&m_engine);
    component.loadUrl(senderUrl());
    if (component.isReady())
        m_sender.reset(component.create());
    if (!m_sender)
        m_error = errorOf(component);
}

Module::~Module() = default;

QString Module::problem(const QString &importDir)
{
    QQmlEngine engine;
    addFolder(&engine, importDir);
    QQmlComponent component(&engine);
    component.loadUrl(senderUrl());
    return component.isReady() ? QString() : errorOf(component);
}

QString Module::place(const QString &importDir)
{
    QQmlEngine engine;
    addFolder(&engine, importDir);
    const QStringList folders = engine.importPathList();
    for (const QString &folder : folders) {
        QString place = folder + QStringLiteral("/ZeltaConnect");
        if (QFileInfo::exists(place + QStringLiteral("/qmldir")))
            return place;
    }
    return {};
}
