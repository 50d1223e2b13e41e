#pragma once

#include <QObject>
#include <QVector>

class QConnectQmlPlugin;

/// The progress values of all kinds of files, as QML sees them.
class ProgressValues : public QObject
{
public:
    explicit ProgressValues(QConnectQmlPlugin &plugin);

    QVector<double> values;
};
