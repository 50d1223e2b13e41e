#include "tour.h"

#include "gestures.h"
#include "pages.h"

#include <QDir>
#include <QPixmap>
#include <QQuickItem>
#include <QScreen>

namespace {

// The back end waits up to 10 s for an engine that does not answer.
constexpr int shellPatience = 30000;
constexpr int shellPoll = 20;
// Time for bindings, animations and the engine's reports before a picture is taken.
constexpr int settleTime = 130;
// Without a picture, bindings and new controls only.
constexpr int hastyTime = 40;
// A touch may create controls, which are laid out before the next frame.
constexpr int layoutTime = 35;
constexpr int moveSteps = 5;
constexpr int moveTime = 8;
constexpr int scenePatience = 1500;
// The engine may request parts of the file again. The module waits 4 s before each resend.
constexpr int transferPatience = 30000;
constexpr int scenePoll = 10;
// A pad is brightest just after the stroke.
constexpr int strikeGlow = 25;

// With the offscreen platform, only the screen can grab the window.
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
        // The step itself sets m_step.
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
    const QString &name = pages().at(page).name;
    const QString navigation = QStringLiteral("nav-") + name;
    QQuickItem *button = findControl(m_host.window()->contentItem(), navigation);
    if (!button) {
        m_problems.append(QStringLiteral("%1 is not on the screen").arg(navigation));
        Q_EMIT finished();
        return;
    }
    drag(button->mapToScene(QPointF(button->width() / 2, button->height() / 2)), QPointF(), 0,
         [this, page] { after(pause(), [this, page] { gesture(page, 0); }); });
}

// The tour of the page. On the update page it also sends the first file of the folder.
QVector<Gesture> Tour::gesturesOn(int page) const
{
    QVector<Gesture> gestures = pages().at(page).tour;
    if (pages().at(page).name != QLatin1String("update") || m_options.files.isEmpty())
        return gestures;
    const QStringList files = QDir(m_options.files).entryList(QDir::Files, QDir::Name);
    if (!files.isEmpty())
        gestures << Gesture{QStringLiteral("file-") + files.first(), {}}
                 << Gesture{QStringLiteral("send"), {}};
    return gestures;
}

void Tour::gesture(int page, int index)
{
    const QVector<Gesture> gestures = gesturesOn(page);
    if (index == gestures.size()) {
        after(pause(), [this, page] {
            awaitScene(page, padHits(), transferring() ? transferPatience : scenePatience);
        });
        return;
    }
    const Gesture &next = gestures.at(index);
    QQuickItem *control = findControl(m_host.window()->contentItem(), next.control);
    if (!control) {
        m_problems.append(QStringLiteral("%1 is not on page %2").arg(next.control, pages().at(page).name));
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

// The picture of the kit shows a lit pad. A transfer ends before its picture is taken.
void Tour::awaitScene(int page, int hitsBefore, int patience)
{
    const QString &name = pages().at(page).name;
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
                                       : QStringLiteral("screenshot-%1.png").arg(pages().at(page).name);
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
    // Each page has the same share of the time. If a page has taken longer, the tour leaves it immediately.
    const qint64 rest = qMax(qint64(0), qint64(pageShare()) * (page + 1) - m_sinceStart.elapsed());
    after(int(rest), [this, page] {
        if (page + 1 < pages().size())
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

int Tour::pause() const
{
    return m_options.screenshots.isEmpty() ? hastyTime : settleTime;
}

int Tour::pageShare() const
{
    return int(m_options.seconds * 1000 / pages().size());
}
