#include "window.h"

#include "panel.h"

#include <QPixmap>
#include <QQmlComponent>
#include <QQmlContext>
#include <QScreen>
#include <QUrl>

PanelWindow::PanelWindow(Panel *panel)
{
    m_engine.rootContext()->setContextProperty(QStringLiteral("panel"), panel);
    QQmlEngine::setObjectOwnership(panel, QQmlEngine::CppOwnership);
}

PanelWindow::~PanelWindow()
{
    m_window.reset();
}

bool PanelWindow::load(const QSize &size)
{
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/panel/Main.qml")));
    QObject *root = component.beginCreate(m_engine.rootContext());
    if (root == nullptr) {
        m_error = component.errorString().trimmed().replace(QLatin1Char('\n'), QLatin1String("; "));
        return false;
    }
    root->setProperty("width", size.width());
    root->setProperty("height", size.height());
    component.completeCreate();
    m_window.reset(qobject_cast<QQuickWindow *>(root));
    if (!m_window) {
        delete root;
        m_error = QStringLiteral("the panel is not a window");
        return false;
    }
    return true;
}

QStringList PanelWindow::pages() const
{
    return m_window->property("pageNames").toStringList();
}

void PanelWindow::showPage(const QString &name)
{
    m_window->setProperty("page", name);
}

QImage PanelWindow::picture() const
{
    // With the offscreen platform, only the screen can grab the window.
    const QImage own = m_window->grabWindow();
    return own.isNull() ? m_window->screen()->grabWindow(m_window->winId()).toImage() : own;
}
