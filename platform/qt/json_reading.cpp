#include "platform/qt/json_reading.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <charconv>
#include <cmath>

namespace vantrace {

namespace {

std::string numberTextOf(const QJsonValue& value) {
    constexpr double largestWhole = 9007199254740992.0;
    const double number = value.toDouble();
    if (number == std::floor(number) && std::abs(number) < largestWhole) {
        return std::to_string(value.toInteger());
    }
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

/// Objects that are no deeper than the parser takes them.
void addMembers(const QJsonObject& object, std::vector<JsonMember>& members) {
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QJsonValue value = member.value();
        if (value.isObject()) {
            addMembers(value.toObject(), members);
        } else if (value.isDouble()) {
            members.push_back({member.key().toStdString(), numberTextOf(value)});
        } else if (value.isBool()) {
            members.push_back({member.key().toStdString(), value.toBool() ? "true" : "false"});
        } else if (!value.isArray()) {
            members.push_back({member.key().toStdString(), value.toString().toStdString()});
        }
    }
}

}  // namespace

JsonObjectReading readJsonObject(std::string_view text) {
    JsonObjectReading reading;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        reading.failure = error.errorString().toStdString();
    } else if (!document.isObject()) {
        reading.failure = "not an object";
    } else {
        addMembers(document.object(), reading.members);
    }
    return reading;
}

}  // namespace vantrace
