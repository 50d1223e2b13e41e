#include "wireshark/fieldrows.h"

#include "support/datagram.h"
#include "wireshark/dissection.h"

#include <QTest>

void addFieldRows(const testsupport::Table<FieldRow> &rows, Capture::Direction direction, const QString &path)
{
    QTest::addColumn<QString>("problem");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("value");

    Capture capture(path);
    QStringList fields;
    QVector<int> frames;
    quint8 conversation = 0;
    int frame = 0;
    for (const FieldRow &row : rows) {
        capture.setConversation(conversation++);
        const QList<QByteArray> datagrams = QByteArray(row.datagrams).split('|');
        for (const QByteArray &datagram : datagrams)
            capture.append(direction, testsupport::datagram(datagram));
        frame += datagrams.size();
        frames.append(frame - 1);
        const QString field = QString::fromLatin1(row.field);
        if (!fields.contains(field))
            fields.append(field);
    }
    capture.finish();
    const Dissection dissection(path, fields);
    int index = 0;
    for (const FieldRow &row : rows) {
        const Dissection::Frame shown = dissection.frames().value(frames.at(index++));
        QTest::newRow(row.name) << dissection.problem() << shown.value(QString::fromLatin1(row.field))
                                << QString::fromUtf8(row.value);
    }
}

void compareField()
{
    QFETCH(QString, problem);
    QFETCH(QString, shown);
    QFETCH(QString, value);
    QCOMPARE(problem, QString());
    QCOMPARE(shown, value);
}
