#pragma once

#include <QObject>
#include <QTimer>

class SoundEngine;

/// The file that the module sends, or sent last. Changes are reported several times a second at most.
class TransferState : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool running READ isRunning NOTIFY changed)
    Q_PROPERTY(double part READ part NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString history READ history NOTIFY changed)

public:
    explicit TransferState(SoundEngine *engine, QObject *parent = nullptr);

    bool isRunning() const { return m_running; }
    /// Received part of the file, 0 to 1.
    double part() const;
    /// One line: the file and how far it is, or how the last one ended.
    QString text() const;
    /// How many files have ended, and how many of them are whole.
    QString history() const;

Q_SIGNALS:
    void changed();

private:
    void follow(const QByteArray &datagram);
    void changeSoon();

    SoundEngine *m_engine;
    QTimer m_timer;
    QString m_content;
    QString m_result;
    quint64 m_size = 0;
    quint64 m_received = 0;
    quint32 m_packet = 0;
    int m_files = 0;
    int m_whole = 0;
    bool m_running = false;
};
