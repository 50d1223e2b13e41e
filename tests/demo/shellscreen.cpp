#include "shellscreen.h"

#include "demo/pages.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QSGRendererInterface>
#include <QSignalSpy>
#include <QUrl>

QString ShellScreen::load(const QSize &size)
{
    // The program of the test may have no display.
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    m_window = std::make_unique<QQuickWindow>();
    m_engine.addImportPath(testsupport::qmlDir());
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/screen/Shell.qml")));
    m_shell.reset(qobject_cast<QQuickItem *>(component.beginCreate(m_engine.rootContext())));
    if (!m_shell)
        return component.errorString();
    m_shell->setParentItem(m_window->contentItem());
    resize(size);
    m_window->show();
    m_shell->setProperty("pages", pageList());
    m_shell->setProperty("startFolder", QUrl::fromLocalFile(m_folder.path()));
    component.completeCreate();
    return module() ? QString() : QStringLiteral("the screen has no module");
}

void ShellScreen::resize(const QSize &size)
{
    m_window->resize(size);
    m_shell->setSize(size);
}

bool ShellScreen::drawn()
{
    QSignalSpy frames(m_window.get(), &QQuickWindow::frameSwapped);
    m_window->update();
    return frames.wait(testsupport::patienceMs);
}

QQuickItem *ShellScreen::open(const QString &page)
{
    m_shell->setProperty("current", pageNames().indexOf(page));
    return itemNamed(m_shell.get(), QStringLiteral("page-") + page);
}

QObject *ShellScreen::objectOf(const QObject *owner, const char *property)
{
    return owner ? owner->property(property).value<QObject *>() : nullptr;
}

QQuickItem *ShellScreen::itemNamed(QQuickItem *root, const QString &name)
{
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible())
            continue;
        if (child->objectName() == name)
            return child;
        if (QQuickItem *found = itemNamed(child, name))
            return found;
    }
    return nullptr;
}

void ShellScreen::sendMouse(QQuickItem *item, QEvent::Type type, Qt::MouseButtons held)
{
    const QPointF middle(item->width() / 2, item->height() / 2);
    QMouseEvent event(type, middle, middle, middle, Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(item, &event);
}

void ShellScreen::touch(QQuickItem *item)
{
    sendMouse(item, QEvent::MouseButtonPress, Qt::LeftButton);
    sendMouse(item, QEvent::MouseButtonRelease, Qt::NoButton);
}

bool ShellScreen::has(const QObject *object, const char *signature)
{
    return object && object->metaObject()->indexOfMethod(signature) >= 0;
}
