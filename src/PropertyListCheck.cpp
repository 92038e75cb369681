#include "PropertyList.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

/// What is wrong with a property list for a build of the client; nothing when it will do.
static std::optional<QString> fault(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return u"cannot be opened: "_s + file.errorString() + u'.';
    const QByteArray list = file.read(PropertyList::maximumSize + 1);
    if (list.size() > PropertyList::maximumSize)
        return u"is larger than %1 bytes, the most that the client reads."_s.arg(PropertyList::maximumSize);
    if (!PropertyList::isDictionary(list))
        return u"cannot be read: it is no property list with a dictionary at its root."_s;
    if (!PropertyList::text(list, u"API_KEY"_s))
        return u"holds no text under API_KEY. Without it nobody stays signed in for longer than an hour."_s;
    return {};
}

/// The build runs this over the list that it was given, because the client itself says nothing about a list
/// that it cannot use.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString path = QCoreApplication::arguments().value(1);
    const auto found = fault(path);
    if (!found)
        return EXIT_SUCCESS;
    std::fprintf(stderr, "The property list %s %s\n", qUtf8Printable(path), qUtf8Printable(*found));
    return EXIT_FAILURE;
}
