#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/// One part of a multipart form as a server reads it.
struct FormPart
{
    QByteArray head; ///< its header lines, without the blank line
    QByteArray body;

    bool operator==(const FormPart&) const = default;
};

/// Reads a multipart form as any server would: by its delimiters alone.
/// \returns nothing when the bytes are no form with this boundary
inline std::optional<QList<FormPart>> readForm(const QByteArray& form, const QByteArray& boundary)
{
    const QByteArray delimiter = "\r\n--" + boundary;
    const QByteArray bytes = "\r\n" + form;
    if (!bytes.startsWith(delimiter))
        return {};
    QList<FormPart> parts;
    for (qsizetype at = delimiter.size();;) {
        const QByteArray rest = bytes.sliced(at);
        if (rest == "--\r\n")
            return parts;
        const qsizetype blankLine = rest.indexOf("\r\n\r\n");
        const qsizetype end = rest.indexOf(delimiter);
        if (!rest.startsWith("\r\n") || blankLine < 0 || end < blankLine + 4)
            return {};
        parts += FormPart{rest.sliced(2, blankLine - 2), rest.sliced(blankLine + 4, end - blankLine - 4)};
        at += end + delimiter.size();
    }
}
