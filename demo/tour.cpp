#include "tour.h"

#include "gestures.h"

#include <QDir>
#include <QPixmap>
#include <QQuickItem>
#include <QScreen>

namespace {

// The back end waits up to ten seconds for an engine that does not answer.
constexpr int shellPatience = 30000;
constexpr int shellPoll = 20;
// Time for bindings, animations and the engine's reports to reach the picture.
constexpr int settleTime = 180;
// A touch may make new controls, which stand in their places only after the next frame.
constexpr int layoutTime = 50;
constexpr int moveSteps = 6;
constexpr int moveTime = 12;
constexpr int scenePatience = 1500;
// The engine may want some of the file again, which takes the module four seconds each time.
constexpr int transferPatience = 30000;
constexpr int scenePoll = 10;
// A pad is brightest just after the stroke.
constexpr int strikeGlow = 25;

// The offscreen platform's backing store cannot be read by the window itself, only by its screen.
QImage picture(QQuickWindow *window)
{
    const QImage own = window->grabWindow();
    return own.isNull() ? window->screen()->grabWindow(window->winId()).toImage() : own;
}

} // namespace

Tour::Tour(ScreenHost &host, const Options &options)
    : m_host(host)
    , m_options(options)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        // The step plans the next one, so it has to be out of the way first.
        const std::function<void()> step = std::move(m_step);
        step();
    });
}

void Tour::start()
{
    m_sinceStart.start();
    awaitShell();
}

void Tour::after(int milliseconds, std::function<void()> step)
{
    m_step = std::move(step);
    m_timer.start(milliseconds);
}

void Tour::awaitShell()
{
    if (m_host.shell()) {
        m_sinceStart.restart();
        showPage(0);
    } else if (m_sinceStart.elapsed() < shellPatience) {
        after(shellPoll, [this] { awaitShell(); });
    } else {
        m_problems.append(QStringLiteral("the screen's pages did not appear"));
        Q_EMIT finished();
    }
}

void Tour::showPage(int page)
{
    const QString name = pageNames().at(page);
    const QString navigation = QStringLiteral("nav-") + name;
    QQuickItem *button = findControl(m_host.window()->contentItem(), navigation);
    if (!button) {
        m_problems.append(QStringLiteral("%1 is not on the screen").arg(navigation));
        Q_EMIT finished();
        return;
    }
    drag(button->mapToScene(QPointF(button->width() / 2, button->height() / 2)), QPointF(), 0,
         [this, page] { after(settleTime, [this, page] { gesture(page, 0); }); });
}

void Tour::gesture(int page, int index)
{
    const QVector<Gesture> gestures = gesturesOf(pageNames().at(page), m_options.files);
    if (index == gestures.size()) {
        after(settleTime, [this, page] {
            awaitScene(page, padHits(), transferring() ? transferPatience : scenePatience);
        });
        return;
    }
    const Gesture &next = gestures.at(index);
    QQuickItem *control = findControl(m_host.window()->contentItem(), next.control);
    if (!control) {
        m_problems.append(QStringLiteral("%1 is not on page %2").arg(next.control, pageNames().at(page)));
        gesture(page, index + 1);
        return;
    }
    drag(control->mapToScene(QPointF(control->width() / 2, control->height() / 2)), next.by, 0,
         [this, page, index] { after(layoutTime, [this, page, index] { gesture(page, index + 1); }); });
}

void Tour::drag(const QPointF &from, const QPointF &by, int move, std::function<void()> next)
{
    QQuickWindow *window = m_host.window();
    if (move == 0)
        touchDown(window, from);
    const bool tap = by.isNull();
    if (tap || move == moveSteps) {
        after(moveTime, [window, at = from + by, next = std::move(next)] {
            touchUp(window, at);
            next();
        });
        return;
    }
    touchMove(window, from + by * (move + 1) / moveSteps);
    after(moveTime, [this, from, by, move, next = std::move(next)] { drag(from, by, move + 1, next); });
}

// The kit is worth a picture only with a pad alight, a transfer only when it has ended.
void Tour::awaitScene(int page, int hitsBefore, int patience)
{
    const QString name = pageNames().at(page);
    const bool strike = name == QLatin1String("kit");
    const bool wanted = strike ? padHits() > hitsBefore : !transferring();
    if (wanted || patience <= 0)
        after(strike ? strikeGlow : 0, [this, page] { takePicture(page); });
    else
        after(scenePoll,
              [this, page, hitsBefore, patience] { awaitScene(page, hitsBefore, patience - scenePoll); });
}

void Tour::takePicture(int page)
{
    if (!m_options.screenshots.isEmpty()) {
        const QString name = page == 0 ? QStringLiteral("screenshot.png")
                                       : QStringLiteral("screenshot-%1.png").arg(pageNames().at(page));
        const QString path = QDir(m_options.screenshots).filePath(name);
        if (QDir().mkpath(m_options.screenshots) && picture(m_host.window()).save(path))
            ++m_pictures;
        else
            m_problems.append(QStringLiteral("cannot save %1").arg(path));
    }
    leavePage(page);
}

void Tour::leavePage(int page)
{
    // Each page gets its share of the whole time; a page that took longer is left at once.
    const qint64 rest = qMax(qint64(0), qint64(pageShare()) * (page + 1) - m_sinceStart.elapsed());
    after(int(rest), [this, page] {
        if (page + 1 < pageNames().size())
            showPage(page + 1);
        else
            Q_EMIT finished();
    });
}

int Tour::padHits() const
{
    return shellPart("device", "padHits").toInt();
}

bool Tour::transferring() const
{
    return shellPart("transfers", "busy").toBool();
}

QVariant Tour::shellPart(const char *part, const char *property) const
{
    const QObject *shell = m_host.shell();
    const QObject *owner = shell ? qvariant_cast<QObject *>(shell->property(part)) : nullptr;
    return owner ? owner->property(property) : QVariant();
}

int Tour::pageShare() const
{
    return int(m_options.seconds * 1000 / pageNames().size());
}
