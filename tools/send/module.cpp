#include "module.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QQmlComponent>
#include <QQmlError>

namespace {

// The module of the same build tree; where there is none, Qt knows its own folder.
QString defaultImportDir()
{
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/../qml");
    return QFileInfo::exists(beside + QStringLiteral("/ZeltaConnect/qmldir")) ? QDir::cleanPath(beside)
                                                                              : QString();
}

} // namespace

Module::Module(const QString &importDir)
{
    const QString folder = importDir.isEmpty() ? defaultImportDir() : QDir(importDir).absolutePath();
    if (!folder.isEmpty())
        m_engine.addImportPath(folder);
    QQmlComponent component(&m_engine);
    component.setData("import ZeltaConnect 1.0\nZeltaConnect {}\n", QUrl());
    if (component.isReady())
        m_object.reset(component.create());
    if (!m_object)
        m_error = component.errors().isEmpty() ? QStringLiteral("the module has no object")
                                               : component.errors().constFirst().description();
}

Module::~Module() = default;
