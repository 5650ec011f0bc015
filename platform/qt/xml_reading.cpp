#include "platform/qt/xml_reading.h"

#include <QXmlStreamReader>

namespace vantrace {

std::string readXml(std::string_view text, const XmlReceiver& receiver) {
    constexpr int deepest = 100;
    constexpr qsizetype longestText = 4096;
    QXmlStreamReader reader(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
    int depth = 0;
    QString content;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
            case QXmlStreamReader::DTD:
                return "a document type is declared";
            case QXmlStreamReader::StartElement:
                if (++depth > deepest) return "elements are too deep in each other";
                content.clear();
                receiver.begin(reader.name().toUtf8().toStdString());
                break;
            case QXmlStreamReader::EndElement:
                --depth;
                receiver.end(reader.name().toUtf8().toStdString(), content.trimmed().toStdString());
                content.clear();
                break;
            case QXmlStreamReader::Characters:
                content += reader.text().left(longestText - content.size());
                break;
            default:
                break;
        }
    }
    return reader.hasError() ? reader.errorString().toStdString() : std::string();
}

}  // namespace vantrace
