#include "gestures.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

using Gestures = QVector<Gesture>;

void sendMouse(QQuickWindow *window, QEvent::Type type, const QPointF &at, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, at, at, at, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace

QVector<Gesture> gesturesOf(const QString &page, const QString &folder)
{
    static const QHash<QString, Gestures> all{
        {QStringLiteral("kit"),
         {{QStringLiteral("setMasterOutLevel"), {0, -14}},
          {QStringLiteral("setHeadphoneOutLevel"), {0, 18}},
          {QStringLiteral("setSongLevel"), {0, -12}},
          {QStringLiteral("pad-1"), {}}}},
        {QStringLiteral("mixer"),
         {{QStringLiteral("setMasterOutLevel"), {0, -5}},
          {QStringLiteral("setMonitorOutBalance"), {0, -40}},
          {QStringLiteral("setDirectOut3Level"), {0, 40}},
          {QStringLiteral("mode-2"), {}},
          {QStringLiteral("setUsbInLevel"), {0, -30}}}},
        {QStringLiteral("equaliser"),
         {{QStringLiteral("band-0"), {30, -70}},
          {QStringLiteral("band-1"), {-40, 80}},
          {QStringLiteral("band-2"), {60, -50}},
          {QStringLiteral("setMasterEqHighGain"), {0, -45}},
          {QStringLiteral("setMasterEqMid1Q"), {0, -20}}}},
        {QStringLiteral("compressor"),
         {{QStringLiteral("setMasterCpThreshold"), {0, 24}},
          {QStringLiteral("setMasterCpRatio"), {0, -44}},
          {QStringLiteral("setMasterCpKnee"), {0, -20}}}},
        {QStringLiteral("effects"),
         {{QStringLiteral("setRoomReverbTime"), {0, -30}},
          {QStringLiteral("setMultiFxActive"), {}},
          {QStringLiteral("setMultiFxParam1"), {0, -60}},
          {QStringLiteral("setInstrumentReverbType/more"), {}}}},
        {QStringLiteral("metronome"),
         {{QStringLiteral("setMetronomeActive"), {}},
          {QStringLiteral("setMetronomeTempo"), {-16, 0}},
          {QStringLiteral("setMetronomeInterval/more"), {}},
          {QStringLiteral("tempo+1"), {}}}},
        {QStringLiteral("padsound"),
         {{QStringLiteral("choose-6"), {}},
          {QStringLiteral("setInstrumentCoarseTuning"), {0, -30}},
          {QStringLiteral("setPadMixerPanning"), {0, -40}},
          {QStringLiteral("triggerCurve"), {24, -20}},
          {QStringLiteral("play"), {}}}},
        {QStringLiteral("update"),
         {{QStringLiteral("askSoundBank"), {}}, {QStringLiteral("requestMemInfo"), {}}}},
    };
    Gestures gestures = all.value(page);
    const QStringList files =
        folder.isEmpty() ? QStringList() : QDir(folder).entryList(QDir::Files, QDir::Name);
    if (page == QLatin1String("update") && !files.isEmpty())
        gestures << Gesture{QStringLiteral("file-") + files.first(), {}}
                 << Gesture{QStringLiteral("send"), {}};
    return gestures;
}

QQuickItem *findControl(QQuickItem *root, const QString &name)
{
    const QString outermost = name.section(QLatin1Char('/'), 0, 0);
    const QString rest = name.section(QLatin1Char('/'), 1);
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible())
            continue;
        QQuickItem *found = nullptr;
        if (child->objectName() == outermost)
            found = rest.isEmpty() ? child : findControl(child, rest);
        if (!found)
            found = findControl(child, name);
        if (found)
            return found;
    }
    return nullptr;
}

void touchDown(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}

void touchMove(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}

void touchUp(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}
