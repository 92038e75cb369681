#include "FoundFile.h"

#include "RegularFile.h"
#include "support/WithoutPrivileges.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// A folder with one of everything that a path may name.
class FoundFileTest : public testing::Test
{
protected:
    FoundFileTest()
    {
        write(u"deed.pdf"_s, "12345");
        write(u"empty"_s, {});
        EXPECT_EQ(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
        EXPECT_TRUE(QFile::link(path(u"nowhere"_s), path(u"dangling"_s)));
        EXPECT_TRUE(QFile::link(path(u"deed.pdf"_s), path(u"link"_s)));
    }

    QString path(const QString& name) const { return folder.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QTemporaryDir folder;
};

const FoundFile nothing{};

TEST_F(FoundFileTest, TellsARegularFileFromAllElse)
{
    EXPECT_EQ(FoundFile::at(path(u"deed.pdf"_s)), (FoundFile{true, 5}));
    EXPECT_EQ(FoundFile::at(path(u"empty"_s)), (FoundFile{true, 0}));
    EXPECT_EQ(FoundFile::at(path(u"link"_s)), (FoundFile{true, 5}));
    for (const QString& other :
        {path(u"pipe"_s), path(u"dangling"_s), path(u"missing"_s), folder.path(), u"/dev/null"_s, QString()})
        EXPECT_EQ(FoundFile::at(other), nothing) << other.toStdString();
}

TEST_F(FoundFileTest, HasNoSizeWhereItMayNotBeRead)
{
    ASSERT_TRUE(QFile::setPermissions(path(u"deed.pdf"_s), {}));
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const WithoutPrivileges ordinary;
    EXPECT_EQ(FoundFile::at(path(u"deed.pdf"_s)), (FoundFile{true, std::nullopt}));
}

TEST_F(FoundFileTest, OfManyComesInTheirOrder)
{
    const QFuture<QList<FoundFile>> look
        = FoundFile::atAll({path(u"empty"_s), path(u"pipe"_s), path(u"deed.pdf"_s)});
    EXPECT_EQ(look.result(), (QList{FoundFile{true, 0}, nothing, FoundFile{true, 5}}));
}

/// Nobody writes into the pipe: opening it in the usual way would never return.
TEST_F(FoundFileTest, IsOpenedOnlyWhereItIsStillARegularFile)
{
    EXPECT_TRUE(RegularFile::open(path(u"deed.pdf"_s)));
    ASSERT_TRUE(FoundFile::at(path(u"deed.pdf"_s)).isRegular);
    ASSERT_TRUE(QFile::remove(path(u"deed.pdf"_s)) && QFile::rename(path(u"pipe"_s), path(u"deed.pdf"_s)));
    EXPECT_FALSE(RegularFile::open(path(u"deed.pdf"_s)));
    EXPECT_FALSE(RegularFile::open(folder.path()));
    EXPECT_FALSE(RegularFile::open(u"/dev/null"_s));
}

TEST_F(FoundFileTest, IsReadInPieces)
{
    const std::shared_ptr<const RegularFile> file = RegularFile::open(path(u"deed.pdf"_s));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 5);
    EXPECT_EQ(file->read(1, 3), "234");
    EXPECT_EQ(file->read(3, 10), "45") << "as far as the file goes";
    EXPECT_EQ(file->read(5, 1), "");
}

} // namespace
