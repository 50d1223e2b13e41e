#include "module.h"

#include "tools/shared/modulefolder.h"

#include <QQmlComponent>
#include <QQmlError>

Module::Module(const QString &importDir)
{
    const QString folder = moduleFolder(importDir);
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
