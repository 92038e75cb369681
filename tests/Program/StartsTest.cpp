#include "ProgramTest.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using StartsTest = ProgramTest;

TEST_F(StartsTest, FurtherStartsEndWellAndTheFirstGoesOn)
{
    QProcess first;
    start(first);
    waitForOwner();
    for (const QStringList& arguments : {QStringList(), QStringList{u"--background"_s},
             QStringList{u"--action=sessions"_s}, QStringList{u"--action=book-remote-notary"_s}}) {
        QProcess further;
        start(further, arguments);
        EXPECT_EQ(exitCodeOf(further), 0) << arguments.join(u' ').toStdString();
        EXPECT_EQ(first.state(), QProcess::Running);
    }
    end(first);
    for (const QString& folder : {u"Quorvel"_s, u"autostart"_s})
        EXPECT_FALSE(QDir(home.filePath(folder)).exists()) << "nobody has chosen anything";
}

TEST_F(StartsTest, AStartInTheBackgroundIsTheProgramToo)
{
    QProcess first;
    start(first, {u"--background"_s});
    waitForOwner();
    QProcess further;
    start(further);
    EXPECT_EQ(exitCodeOf(further), 0);
    EXPECT_EQ(first.state(), QProcess::Running);
    end(first);
}

TEST_F(StartsTest, QuestionsAreAnsweredWhileItRuns)
{
    QProcess first;
    start(first);
    waitForOwner();
    for (const auto& [option, beginning] :
        {std::pair(u"--version"_s, "Quorvel "), {u"--help"_s, "Usage: quorvel "}}) {
        QProcess program;
        start(program, {option});
        EXPECT_EQ(exitCodeOf(program), 0);
        EXPECT_THAT(program.readAllStandardOutput().toStdString(), testing::StartsWith(beginning));
    }
    end(first);
}

TEST_F(StartsTest, WhatItDoesNotUnderstandItRefuses)
{
    for (const QString& argument : {u"--bogus"_s, u"--action=settings"_s, u"deed.pdf"_s}) {
        QProcess program;
        start(program, {argument});
        EXPECT_EQ(exitCodeOf(program), 2) << argument.toStdString();
        EXPECT_THAT(
            program.readAllStandardError().toStdString(), testing::HasSubstr("quorvel: There is no "));
    }
}

} // namespace
