#pragma once

#include <QByteArray>
#include <QList>

namespace testsupport {

/// Converts a datagram written as tags and hex digits to bytes: "BT AC 0003 0000". An item of two characters
/// that begins with a capital letter is a tag; its characters are copied. Every other item is four or more
/// hex digits.
inline QByteArray datagram(const QByteArray &text)
{
    QByteArray bytes;
    const QList<QByteArray> words = text.simplified().split(' ');
    for (const QByteArray &word : words) {
        const bool isTag = word.size() == 2 && word.at(0) >= 'A' && word.at(0) <= 'Z';
        bytes += isTag ? word : QByteArray::fromHex(word);
    }
    return bytes;
}

/// Converts several datagrams, separated by '|'. An empty text gives an empty list.
inline QList<QByteArray> datagrams(const QByteArray &text)
{
    QList<QByteArray> result;
    if (text.trimmed().isEmpty())
        return result;
    const QList<QByteArray> parts = text.split('|');
    for (const QByteArray &part : parts)
        result += datagram(part);
    return result;
}

} // namespace testsupport
