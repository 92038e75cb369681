#include "StartOptions.h"

using namespace Qt::StringLiterals;

static const QString actionOption = u"--action="_s;

StartOptions StartOptions::of(const QStringList& arguments)
{
    StartOptions options;
    for (const QString& argument : arguments) {
        if (argument == u"--background"_s)
            options.comesForward = false;
        else if (argument.startsWith(actionOption))
            options.action = argument.sliced(actionOption.size());
        else
            options.fault = u"There is no option \"%1\"."_s.arg(argument);
    }
    options.comesForward |= !options.action.isEmpty();
    const bool isKnown = options.action.isEmpty() || sectionOf(options.action);
    if (!isKnown)
        options.fault = u"There is no action \"%1\"."_s.arg(options.action);
    return options;
}

QString StartOptions::information(const QStringList& arguments, const QString& version)
{
    if (arguments.contains(u"--help"_s) || arguments.contains(u"-h"_s))
        return u"Usage: quorvel [--background] [--action=ID]\n"
               "\n"
               "  --background  start with the status menu alone, where the desktop has room for it\n"
               "  --action=ID   open a section: book-remote-notary, sessions\n"
               "  --version     tell the version\n"
               "\n"
               "While Quorvel is running, a further start brings its window to the front.\n"_s;
    if (arguments.contains(u"--version"_s))
        return u"Quorvel "_s + version + u'\n';
    return {};
}

std::optional<AppSection> StartOptions::sectionOf(const QString& action)
{
    if (action == u"book-remote-notary"_s)
        return AppSection::book;
    if (action == u"sessions"_s)
        return AppSection::sessions;
    return std::nullopt;
}
