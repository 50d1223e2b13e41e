#include "options.h"
#include "panel.h"
#include "window.h"

#include "tools/shared/quitonsignal.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QTextStream>
#include <QTimer>

namespace {

enum ExitStatus { Well = 0, Failed = 1, Misused = 2 };

void complain(const QString &line)
{
    QTextStream(stderr) << "zelta-panel: " << line << '\n';
}

void useNoDisplay()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
}

/// Shows each page for the same time and takes its picture at the end of that time. Begins with the first
/// datagram of the module, or without one after the time for all pages.
class Tour : public QObject
{
public:
    Tour(PanelWindow *window, const PanelOptions &options)
        : m_window(window)
        , m_folder(options.pictures)
        , m_pages(window->pages())
    {
        m_timer.setInterval(int(options.seconds * 1000.0 / m_pages.size()));
        connect(&m_timer, &QTimer::timeout, this, [this] { leavePage(); });
        m_patience.setSingleShot(true);
        m_patience.setInterval(int(options.seconds * 1000.0));
        connect(&m_patience, &QTimer::timeout, this, [this] { m_timer.start(); });
    }

    void start(Panel *panel)
    {
        m_patience.start();
        connect(panel, &Panel::moduleChanged, this, [this] {
            m_patience.stop();
            if (!m_timer.isActive())
                m_timer.start();
        });
    }
    bool hasFailed() const { return m_failed; }

private:
    void leavePage()
    {
        if (!m_folder.isEmpty())
            takePicture();
        if (++m_page == m_pages.size())
            QCoreApplication::quit();
        else
            m_window->showPage(m_pages.at(m_page));
    }

    void takePicture()
    {
        const QString name = m_page == 0 ? QStringLiteral("screenshot-panel.png")
                                         : QStringLiteral("screenshot-panel-%1.png").arg(m_pages.at(m_page));
        const QString path = QDir(m_folder).filePath(name);
        if (QDir().mkpath(m_folder) && m_window->picture().save(path))
            return;
        complain(QStringLiteral("cannot save %1").arg(path));
        m_failed = true;
    }

    PanelWindow *m_window;
    QString m_folder;
    QStringList m_pages;
    QTimer m_timer;
    QTimer m_patience;
    int m_page = 0;
    bool m_failed = false;
};

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const PanelOptions options = parsePanelOptions(arguments);
    switch (options.action) {
    case PanelOptions::Action::Show: QTextStream(stdout) << options.text; return Well;
    case PanelOptions::Action::Refuse:
        complain(options.text + QStringLiteral(" (see --help)"));
        return Misused;
    case PanelOptions::Action::Run: break;
    }

    if (options.headless)
        useNoDisplay();
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("zelta-panel"));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
    QuitOnSignal quitOnSignal;

    Panel panel;
    if (!panel.start(options.address, options.port, options.groove)) {
        complain(QStringLiteral("cannot listen on %1:%2: %3")
                     .arg(options.address.toString())
                     .arg(options.port)
                     .arg(panel.engine()->errorString()));
        return Failed;
    }
    QObject::connect(&panel, &Panel::quitRequested, &application, &QCoreApplication::quit);
    PanelWindow window(&panel);
    if (!window.load(options.size)) {
        complain(window.error());
        return Failed;
    }
    // Scripts wait for this line.
    QTextStream(stdout) << "listening on " << panel.listening() << "\n";

    if (!options.headless)
        return QCoreApplication::exec();
    Tour tour(&window, options);
    tour.start(&panel);
    QCoreApplication::exec();
    return tour.hasFailed() ? Failed : Well;
}
