#pragma once

#include "JSONObject.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>

#include <rapidcheck.h>

#include <cmath>
#include <limits>
#include <vector>

/// Arbitrary values for properties.
namespace Generate {

/// Texts of any characters, within the first plane and beyond it, NUL included.
inline rc::Gen<QString> text()
{
    const auto character = rc::gen::oneOf(rc::gen::inRange<char32_t>(0, 0x80),
        rc::gen::inRange<char32_t>(0x80, 0xD800), rc::gen::inRange<char32_t>(0xE000, 0x110000));
    return rc::gen::map(rc::gen::container<std::u32string>(character),
        [](const std::u32string& characters) { return QString::fromStdU32String(characters); });
}

/// Texts that the accessors treat in a way of their own, and those that are nearly such.
inline rc::Gen<QString> looseText()
{
    using namespace Qt::StringLiterals;
    const auto known = rc::gen::element(u""_s, u" "_s, u"null"_s, u" NULL\n"_s, u"(null)"_s, u"nil"_s,
        u"<Null>"_s, u"+7"_s, u"-0"_s, u"12 "_s, u"9223372036854775807"_s, u"9223372036854775808"_s,
        u"-9223372036854775809"_s, u"٣"_s, u"Yes"_s, u"TRUE"_s, u"y"_s, u"nan"_s, u"1e3"_s, u"walkin"_s);
    const auto digits = rc::gen::map(
        rc::gen::container<std::string>(rc::gen::element('+', '-', '0', '1', '9', ' ', '.', 'e')),
        [](const std::string& characters) { return QString::fromStdString(characters); });
    return rc::gen::oneOf(known, digits, text());
}

/// Numbers of every size and shape that JSON can write.
inline rc::Gen<QJsonValue> number()
{
    const auto toValue = [](auto value) { return QJsonValue(value); };
    const auto anyBits = rc::gen::map(rc::gen::arbitrary<quint64>(), [](quint64 bits) {
        const auto value = std::bit_cast<double>(bits);
        return QJsonValue(std::isfinite(value) ? value : 0.5);
    });
    const auto edges = rc::gen::element(0.0, -0.0, 0.5, 12.9, -12.9, 0x1p53, 0x1p63, 0x1p64, 1e20, 1e308,
        -1e308, 5e-324, 9223372036854774784.0);
    return rc::gen::oneOf(rc::gen::map(rc::gen::arbitrary<qint64>(), toValue),
        rc::gen::map(rc::gen::arbitrary<double>(), toValue), rc::gen::map(edges, toValue), anyBits);
}

inline rc::Gen<QJsonValue> scalar()
{
    const auto toValue = [](const auto& value) { return QJsonValue(value); };
    return rc::gen::oneOf(rc::gen::just(QJsonValue(QJsonValue::Null)),
        rc::gen::map(rc::gen::arbitrary<bool>(), toValue), number(), rc::gen::map(looseText(), toValue));
}

rc::Gen<QJsonObject> object(int depth, const QStringList& keys);

/// Any JSON value, with containers nested at most `depth` deep whose objects hold some of these keys.
inline rc::Gen<QJsonValue> value(int depth, const QStringList& keys)
{
    if (depth == 0)
        return scalar();
    const auto list = rc::gen::map(rc::gen::container<std::vector<QJsonValue>>(value(depth - 1, keys)),
        [](const std::vector<QJsonValue>& elements) {
            QJsonArray array;
            for (const QJsonValue& element : elements)
                array.append(element);
            return QJsonValue(array);
        });
    const auto inner = rc::gen::map(object(depth, keys), [](const QJsonObject& o) { return QJsonValue(o); });
    return rc::gen::weightedOneOf<QJsonValue>({{6, scalar()}, {1, list}, {1, inner}});
}

/// An object that holds some of these keys.
inline rc::Gen<QJsonObject> object(int depth, const QStringList& keys)
{
    const auto member = rc::gen::pair(
        rc::gen::elementOf(std::vector<QString>(keys.begin(), keys.end())), value(depth - 1, keys));
    return rc::gen::map(rc::gen::container<std::vector<std::pair<QString, QJsonValue>>>(member),
        [](const std::vector<std::pair<QString, QJsonValue>>& members) {
            QJsonObject result;
            for (const auto& [key, held] : members)
                result.insert(key, held);
            return result;
        });
}

/// These bytes with some of them changed, left out, doubled or put in.
inline rc::Gen<QByteArray> damaged(const QByteArray& bytes)
{
    struct Edit
    {
        size_t at;
        int kind;
        char byte;
    };
    const auto edit = rc::gen::build<Edit>(rc::gen::set(&Edit::at, rc::gen::inRange<size_t>(0, 1U << 20U)),
        rc::gen::set(&Edit::kind, rc::gen::inRange(0, 4)), rc::gen::set(&Edit::byte));
    // A few edits, each of any kind and anywhere: RapidCheck's size limits how many and how large at once.
    const auto edits
        = rc::gen::resize(4, rc::gen::container<std::vector<Edit>>(rc::gen::resize(rc::kNominalSize, edit)));
    return rc::gen::map(edits, [bytes](const std::vector<Edit>& changes) {
        QByteArray result = bytes;
        for (const Edit& change : changes) {
            const auto at = static_cast<qsizetype>(change.at) % (result.size() + 1);
            switch (change.kind) {
            case 0:
                result.insert(at, change.byte);
                break;
            case 1:
                result.remove(at, 1);
                break;
            case 2:
                result.replace(at, 1, QByteArray(1, change.byte));
                break;
            default:
                result.insert(at, result.mid(at, 8));
            }
        }
        return result;
    });
}

} // namespace Generate

namespace rc {

template <>
struct Arbitrary<QString>
{
    static Gen<QString> arbitrary() { return Generate::text(); }
};

} // namespace rc

// What RapidCheck shows of Qt's types when a property fails.
inline void showValue(const QString& text, std::ostream& out)
{
    out << '"' << text.toStdString() << '"';
}

inline void showValue(const QByteArray& bytes, std::ostream& out)
{
    out << bytes.toPercentEncoding(" {}[]\":,").toStdString();
}

inline void showValue(const QJsonObject& object, std::ostream& out)
{
    out << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

inline void showValue(const QJsonValue& value, std::ostream& out)
{
    out << QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}
