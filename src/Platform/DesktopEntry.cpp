#include "DesktopEntry.h"

static const QByteArray groupLine = "[Desktop Entry]";

DesktopEntry::Keys DesktopEntry::read(const QByteArray& text)
{
    Keys keys;
    bool isOurs = false;
    for (const QByteArray& whole : text.split('\n')) {
        const QByteArray line = whole.trimmed();
        if (line.startsWith('['))
            isOurs = line == groupLine;
        const qsizetype sign = line.indexOf('=');
        if (isOurs && sign > 0 && !line.startsWith('#') && !line.startsWith('['))
            keys.insert(line.first(sign).trimmed(), line.sliced(sign + 1).trimmed());
    }
    return keys;
}

QByteArray DesktopEntry::write(const Keys& keys)
{
    QByteArray text = groupLine + '\n';
    for (const auto& [key, value] : keys.asKeyValueRange())
        text += key + '=' + value + '\n';
    return text;
}

bool DesktopEntry::isTrue(const QByteArray& value)
{
    return value == "true" || value == "1";
}

bool DesktopEntry::isFalse(const QByteArray& value)
{
    return value == "false" || value == "0";
}

QByteArray DesktopEntry::escaped(const QByteArray& text)
{
    QByteArray value = text;
    value.replace('\\', "\\\\").replace('\n', "\\n").replace('\t', "\\t").replace('\r', "\\r");
    // Blanks at the ends of a value do not belong to it.
    if (value.endsWith(' '))
        value.replace(value.size() - 1, 1, "\\s");
    if (value.startsWith(' '))
        value.replace(0, 1, "\\s");
    return value;
}

QByteArray DesktopEntry::unescaped(const QByteArray& value)
{
    static const QMap<char, char> meanings{{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    QByteArray text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '\\' && i + 1 < value.size() && meanings.contains(value[i + 1]);
        text += isEscape ? meanings[value[++i]] : value[i];
    }
    return text;
}

QByteArray DesktopEntry::quoted(const QByteArray& argument)
{
    QByteArray text;
    for (const char letter : argument) {
        if (letter == '"' || letter == '`' || letter == '$' || letter == '\\')
            text += '\\';
        // Outside of quotes, too, a single one would begin a field code.
        if (letter == '%')
            text += '%';
        text += letter;
    }
    return '"' + text + '"';
}
