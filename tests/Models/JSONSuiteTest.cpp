#include "Rows.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// A document whose top is a single value is valid, but no answer of the bridge.
bool isListOrObject(const QByteArray& json)
{
    return json.trimmed().startsWith('[') || json.trimmed().startsWith('{');
}

/// Against a collection of documents by others that is not part of this repository: JSONTestSuite's folder
/// test_parsing. The first letter of a file's name tells what a parser has to do with it: y reads, n refuses,
/// i does as it likes.
TEST(JSONSuite, IsReadAndRefusedAsItsFilesAreNamed)
{
    const QString folder = qEnvironmentVariable("QUORVEL_JSON_TEST_SUITE");
    if (folder.isEmpty())
        GTEST_SKIP() << "QUORVEL_JSON_TEST_SUITE names no folder";
    const QStringList names = QDir(folder).entryList({u"*.json"_s}, QDir::Files);
    ASSERT_FALSE(names.isEmpty()) << folder.toStdString();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(QDir(folder).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray json = file.readAll();
        const std::optional<JSONValue> value = JSONValue::parse(json);
        const bool mayBeRead = !name.startsWith(u'n');
        const bool mustBeRead = name.startsWith(u'y') && isListOrObject(json);
        EXPECT_TRUE(mayBeRead || !value);
        EXPECT_TRUE(!mustBeRead || value);
    }
}

} // namespace
