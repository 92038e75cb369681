#pragma once

#include <QByteArray>
#include <QList>

/// Property lists written by hand, so that malformed ones can be written, too.
namespace PropertyLists {

inline QByteArray xml(const QByteArray& root)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + root + "</plist>\n";
}

inline QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> shift));
    return bytes;
}

/// What closes a binary list and says how the rest is to be read.
struct Trailer
{
    int offsetSize = 4;
    int referenceSize = 2;
    quint64 count = 0;
    quint64 root = 0;
    quint64 offsets = 0;

    QByteArray bytes() const
    {
        return QByteArray(6, '\0') + static_cast<char>(offsetSize) + static_cast<char>(referenceSize)
            + bigEndian(count, 8) + bigEndian(root, 8) + bigEndian(offsets, 8);
    }
};

/// A binary list of these objects; the first one is the root.
inline QByteArray binary(const QList<QByteArray>& objects)
{
    QByteArray list = "bplist00";
    QByteArray offsets;
    for (const QByteArray& object : objects) {
        offsets += bigEndian(static_cast<quint64>(list.size()), 4);
        list += object;
    }
    const Trailer trailer{
        .count = static_cast<quint64>(objects.size()), .offsets = static_cast<quint64>(list.size())};
    return list + offsets + trailer.bytes();
}

/// A marker with its count; from fifteen on, the count follows as a 32-bit number.
inline QByteArray marker(int kind, qsizetype count)
{
    const auto number = static_cast<quint64>(count);
    if (count < 15)
        return bigEndian(static_cast<quint64>(kind) << 4 | number, 1);
    return bigEndian(static_cast<quint64>(kind) << 4 | 0xF, 1) + '\x12' + bigEndian(number, 4);
}

inline QByteArray text(const QByteArray& ascii)
{
    return marker(5, ascii.size()) + ascii;
}

inline QByteArray references(const QList<quint64>& objects)
{
    QByteArray bytes;
    for (const quint64 object : objects)
        bytes += bigEndian(object, 2);
    return bytes;
}

inline QByteArray array(const QList<quint64>& objects)
{
    return marker(0xA, objects.size()) + references(objects);
}

/// \param members  all keys, then all values
inline QByteArray dictionary(const QList<quint64>& members)
{
    return marker(0xD, members.size() / 2) + references(members);
}

} // namespace PropertyLists
