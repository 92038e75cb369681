#include "FileChooser.h"

#include "ComponentsTest.h"
#include "support/EventLoop.h"

#include <QDialogButtonBox>
#include <QDirIterator>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// The dialog that Qt itself draws, in a process whose settings lie in a folder of the test's own.
class FileChooserTest : public testing::Test
{
protected:
    FileChooserTest() : previousConfig_(qgetenv("XDG_CONFIG_HOME"))
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QFile(folder.filePath(u"deed.pdf"_s)).open(QIODevice::WriteOnly);
        over->show();
    }
    ~FileChooserTest() override
    {
        over.reset();
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
        if (previousConfig_.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", previousConfig_);
    }

    QFileDialog* open(const FileChooser::Texts& texts = {u"Choose Files"_s, {}})
    {
        FileChooser::open(over.get(), texts, [this](const QList<QUrl>& files) { chosen += files; });
        settle();
        return over->findChild<QFileDialog*>();
    }
    bool wroteSettings() const
    {
        return QDirIterator(config.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories)
            .hasNext();
    }

    QTemporaryDir config;
    QTemporaryDir folder;
    std::unique_ptr<QWidget> over = std::make_unique<QWidget>();
    QList<QUrl> chosen;

private:
    const QByteArray previousConfig_;
};

} // namespace

TEST_F(FileChooserTest, HandsOnTheChosenFilesAndRemembersNothing)
{
    const QPointer<QFileDialog> dialog = open();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
    EXPECT_TRUE(dialog->isModal());
    dialog->findChild<QLineEdit*>()->setText(folder.filePath(u"deed.pdf"_s));
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    settle();
    EXPECT_EQ(chosen, QList<QUrl>{QUrl::fromLocalFile(folder.filePath(u"deed.pdf"_s))});
    EXPECT_FALSE(dialog);
    EXPECT_FALSE(wroteSettings());
}

TEST_F(FileChooserTest, SaysWhatTheFilesAreFor)
{
    const QFileDialog* dialog = open({u"Choose Files for This Session"_s, u"Add Files"_s});
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->windowTitle(), u"Choose Files for This Session"_s);
    EXPECT_EQ(dialog->labelText(QFileDialog::Accept), u"Add Files"_s);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
}

TEST_F(FileChooserTest, CancellingChoosesNothing)
{
    const QPointer<QFileDialog> dialog = open();
    ASSERT_TRUE(dialog);
    dialog->reject();
    settle();
    EXPECT_EQ(chosen, QList<QUrl>());
    EXPECT_FALSE(dialog);
    EXPECT_FALSE(wroteSettings());
}

TEST_F(FileChooserTest, TheDialogGoesWithItsWidget)
{
    const QPointer<QFileDialog> dialog = open();
    ASSERT_TRUE(dialog);
    over.reset();
    EXPECT_FALSE(dialog);
    EXPECT_EQ(chosen, QList<QUrl>());
    EXPECT_FALSE(wroteSettings());
}
