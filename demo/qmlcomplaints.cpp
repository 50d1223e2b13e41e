#include "qmlcomplaints.h"

#include <QMutex>
#include <QtGlobal>

namespace {

// Messages arrive from any thread.
struct Complaints
{
    QMutex mutex;
    QStringList texts;
    QtMessageHandler previous = nullptr;
};

Complaints &complaints()
{
    static Complaints all;
    return all;
}

bool concernsQml(const QMessageLogContext &context, const QString &message)
{
    const QLatin1String category(context.category ? context.category : "");
    return category == QLatin1String("qml") || category == QLatin1String("js") ||
           category.startsWith(QLatin1String("qt.qml")) || category.startsWith(QLatin1String("qt.quick")) ||
           message.contains(QLatin1String(".qml:")) || message.contains(QLatin1String(".js:"));
}

void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // QtInfoMsg has the highest number, so a comparison by severity is not possible.
    if (type != QtDebugMsg && type != QtInfoMsg && concernsQml(context, message)) {
        QMutexLocker lock(&complaints().mutex);
        complaints().texts.append(message);
    }
    if (const QtMessageHandler previous = complaints().previous) {
        previous(type, context, message);
    }
}

} // namespace

void QmlComplaints::collect()
{
    complaints().previous = qInstallMessageHandler(handle);
}

QStringList QmlComplaints::collected()
{
    QMutexLocker lock(&complaints().mutex);
    return complaints().texts;
}
