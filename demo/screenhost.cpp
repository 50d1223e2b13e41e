#include "screenhost.h"

#include "pages.h"

#include "tools/shared/engineaddress.h"
#include "tools/shared/modulefolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QQmlComponent>
#include <QUrl>

namespace {

QString engineAddress()
{
    const QString given = qEnvironmentVariable(engineVariable);
    return given.isEmpty() ? QStringLiteral("172.20.21.22") : given.section(QLatin1Char(':'), 0, 0);
}

} // namespace

ScreenHost::ScreenHost() = default;

ScreenHost::~ScreenHost()
{
    m_window.reset();
}

bool ScreenHost::load(const Options &options)
{
    const QString folder = moduleFolder(options.importDir);
    if (!folder.isEmpty())
        m_engine.addImportPath(folder);

    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/screen/Main.qml")));
    QObject *root = component.beginCreate(m_engine.rootContext());
    if (!root) {
        m_error = component.errorString().trimmed().replace(QLatin1Char('\n'), QLatin1String("; "));
        return false;
    }
    root->setProperty("width", options.size.width());
    root->setProperty("height", options.size.height());
    root->setProperty("pages", pageList());
    root->setProperty("startPage", options.page);
    root->setProperty(
        "startFolder",
        QUrl::fromLocalFile(options.files.isEmpty() ? QDir::homePath() : QDir(options.files).absolutePath()));
    root->setProperty("engineAddress", engineAddress());
    component.completeCreate();

    m_window.reset(qobject_cast<QQuickWindow *>(root));
    if (!m_window) {
        delete root;
        m_error = QStringLiteral("the screen is not a window");
        return false;
    }
    QObject::connect(&m_engine, &QQmlEngine::quit, qApp, &QCoreApplication::quit);
    return true;
}

QObject *ScreenHost::shell() const
{
    return m_window ? qvariant_cast<QObject *>(m_window->property("shell")) : nullptr;
}
