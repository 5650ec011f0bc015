#include "platform/qt/json_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <cassert>
#include <cmath>

namespace vantrace {

namespace {

struct ToQt {
    QJsonValue operator()(std::monostate) const { return QJsonValue(QJsonValue::Null); }
    QJsonValue operator()(bool value) const { return QJsonValue(value); }
    QJsonValue operator()(std::int64_t value) const { return QJsonValue(static_cast<qint64>(value)); }
    QJsonValue operator()(double value) const {
        return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QJsonValue::Null);
    }
    QJsonValue operator()(const std::string& value) const {
        return QJsonValue(QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size())));
    }
};

/// A document is an object or an array, and its objects sort their members: so each value is written as an
/// array of its own and taken out of the brackets.
std::string valueText(const JsonValue& value) {
    const QByteArray text =
        QJsonDocument(QJsonArray{std::visit(ToQt{}, value)}).toJson(QJsonDocument::Compact);
    return text.mid(1, text.size() - 2).toStdString();
}

}  // namespace

JsonRows::JsonRows(const std::vector<std::string>& memberNames) {
    for (const std::string& name : memberNames) m_keys.push_back(valueText(name) + ":");
}

std::string JsonRows::object(const std::vector<JsonValue>& values) const {
    assert(values.size() == m_keys.size());
    std::string text = "{";
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0) text += ',';
        text += m_keys[i] + valueText(values[i]);
    }
    return text + '}';
}

}  // namespace vantrace
