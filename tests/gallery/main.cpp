/// Draws every component in each of its states, for a look at all of them at once:
///   component_gallery --output FOLDER [--text PIXELS] [-reverse]
#include "BrandStyle.h"
#include "Specimens.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include <memory>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption output(u"output"_s, u"Folder for the pictures."_s, u"folder"_s, u"."_s);
    parser.addHelpOption();
    const QCommandLineOption text(u"text"_s, u"The desktop's text size."_s, u"pixels"_s, u"13"_s);
    parser.addOptions({output, text});
    parser.process(application);
    const QDir folder(parser.value(output));
    if (!folder.mkpath(u"."_s))
        return 1;

    QFont desktop;
    desktop.setPixelSize(parser.value(text).toInt());
    QApplication::setFont(desktop);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    auto* style = BrandStyle::install();
    const std::initializer_list<std::pair<QString, QWidget* (*)()>> sheets{
        {u"buttons"_s, makeButtonsSheet}, {u"fields"_s, makeFieldsSheet}, {u"panels"_s, makePanelsSheet}};
    for (const bool dark : {false, true}) {
        style->setDark(dark);
        for (const auto& [name, make] : sheets) {
            const std::unique_ptr<QWidget> sheet(make());
            const auto file = u"states-%1-%2.png"_s.arg(name, dark ? u"dark"_s : u"light"_s);
            if (!static_cast<Specimens::Sheet*>(sheet.get())->picture().save(folder.filePath(file)))
                return 1;
        }
    }
    return 0;
}
