#include "recipe.h"

#include "support/testprogram.h"

#include <QQmlComponent>
#include <QQuickItem>

namespace {

QObject *findBelow(QObject *object, const QString &name)
{
    if (object->objectName() == name)
        return object;
    QObjectList inside = object->children();
    if (const auto *item = qobject_cast<QQuickItem *>(object)) {
        const QList<QQuickItem *> items = item->childItems();
        for (QQuickItem *child : items) {
            if (!inside.contains(child))
                inside += child;
        }
    }
    if (const auto *window = qobject_cast<QQuickWindow *>(object)) {
        if (!inside.contains(window->contentItem()))
            inside += window->contentItem();
    }
    for (QObject *child : qAsConst(inside)) {
        if (QObject *found = findBelow(child, name))
            return found;
    }
    return nullptr;
}

} // namespace

Recipe::Recipe(const QString &file, const QString &address,
               const std::function<void(SoundEngine &)> &configure)
    : m_address(address.isEmpty() ? QString::fromLatin1(testsupport::engineAddress) : address)
{
    // Read by the module when it is created.
    qputenv("ZELTACONNECT_ENGINE", m_address.toLatin1());
    startEngine();
    if (configure)
        configure(*m_engine);
    // The first import path, so that an installed module is not tested instead.
    m_qml.addImportPath(testsupport::qmlDir());
    QQmlComponent component(
        &m_qml, QUrl::fromLocalFile(QStringLiteral(ZELTACONNECT_SOURCE_DIR "/docs/recipes/") + file));
    m_root.reset(component.create());
    m_error = component.errorString();
    if (auto *item = qobject_cast<QQuickItem *>(m_root.get())) {
        m_window = std::make_unique<QQuickWindow>();
        m_window->resize(item->size().toSize());
        item->setParentItem(m_window->contentItem());
        m_window->show();
    }
}

Recipe::~Recipe()
{
    m_root.reset();
}

QQuickWindow *Recipe::window() const
{
    return m_window ? m_window.get() : qobject_cast<QQuickWindow *>(m_root.get());
}

void Recipe::startEngine()
{
    m_engine = std::make_unique<SoundEngine>();
    if (!m_engine->listen(QHostAddress(m_address)))
        qFatal("%s: %s", qPrintable(m_address), qPrintable(m_engine->errorString()));
}

QObject *Recipe::find(const char *name) const
{
    return m_root ? findBelow(m_root.get(), QLatin1String(name)) : nullptr;
}

QObject *Recipe::zelta() const
{
    const QObjectList children = m_root->children();
    for (const QObject *child : children) {
        if (auto *zelta = child->property("zelta").value<QObject *>())
            return zelta;
    }
    return nullptr;
}

QString Recipe::text(const char *name) const
{
    const QObject *object = find(name);
    return object ? object->property("text").toString() : QString();
}

void Recipe::drag(const char *name, double value) const
{
    QObject *slider = find(name);
    if (!slider || !slider->setProperty("value", value) || !QMetaObject::invokeMethod(slider, "moved"))
        qFatal("there is no slider %s", name);
}

void Recipe::click(const char *name) const
{
    QObject *button = find(name);
    if (!button || !button->property("enabled").toBool() || !QMetaObject::invokeMethod(button, "clicked"))
        qFatal("there is no button %s that can be clicked", name);
}
