#include "app/output/row_writer.h"

#include <string>

#include "app/output/table_writer.h"
#include "platform/qt/json_text.h"

namespace vantrace {

namespace {

void put(std::ostream& out, const std::string& text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!out) throw OutputFailure();
}

void flushNow(std::ostream& out) {
    if (!out.flush()) throw OutputFailure();
}

/// A field as RFC 4180 wants it.
void appendField(std::string& line, const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        line += text;
        return;
    }
    line += '"';
    for (const char character : text) {
        if (character == '"') line += '"';
        line += character;
    }
    line += '"';
}

class CsvWriter final : public RowWriter {
  public:
    CsvWriter(std::span<const Column> columns, std::ostream& out) : m_columns(columns), m_out(out) {
        std::string line;
        for (const Column& column : columns) {
            if (!line.empty()) line += ',';
            line += column.name;
        }
        put(m_out, line + "\n");
    }

    void add(const Row& row) override {
        m_line.clear();
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            if (i > 0) m_line += ',';
            appendField(m_line, csvText(row.at(i), m_columns[i].form));
        }
        m_line += '\n';
        put(m_out, m_line);
    }
    void flush() override { flushNow(m_out); }
    void finish() override { flushNow(m_out); }

  private:
    std::span<const Column> m_columns;
    std::ostream& m_out;
    std::string m_line;
};

std::vector<std::string> namesOf(std::span<const Column> columns) {
    std::vector<std::string> names;
    for (const Column& column : columns) names.emplace_back(column.name);
    return names;
}

JsonValue jsonValue(const Value& value, ValueForm form) {
    struct Writer {
        ValueForm form;
        JsonValue operator()(std::monostate) const { return {}; }
        JsonValue operator()(const std::string& text) const { return text; }
        JsonValue operator()(double number) const { return number; }
        JsonValue operator()(std::int64_t number) const { return number; }
        JsonValue operator()(bool flag) const { return flag; }
        JsonValue operator()(const Instant& time) const { return csvText(time, form); }
    };
    return std::visit(Writer{form}, value);
}

class JsonWriter final : public RowWriter {
  public:
    JsonWriter(std::span<const Column> columns, std::ostream& out)
        : m_columns(columns), m_out(out), m_objects(namesOf(columns)) {
        put(m_out, "[");
    }

    void add(const Row& row) override {
        std::vector<JsonValue> values;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            values.push_back(jsonValue(row.at(i), m_columns[i].form));
        }
        put(m_out, (m_isFirst ? "\n" : ",\n") + m_objects.object(values));
        m_isFirst = false;
    }
    void flush() override { flushNow(m_out); }
    void finish() override {
        put(m_out, m_isFirst ? "]\n" : "\n]\n");
        flushNow(m_out);
    }

  private:
    std::span<const Column> m_columns;
    std::ostream& m_out;
    JsonRows m_objects;
    bool m_isFirst = true;
};

}  // namespace

std::unique_ptr<RowWriter> makeRowWriter(Format format, std::span<const Column> columns, std::ostream& out) {
    switch (format) {
        case Format::csv:
            return std::make_unique<CsvWriter>(columns, out);
        case Format::json:
            return std::make_unique<JsonWriter>(columns, out);
        case Format::table:
            break;
    }
    return std::make_unique<TableWriter>(columns, out);
}

void writeTable(std::span<const Column> columns, std::span<const Row> rows, std::ostream& out) {
    TableWriter table(columns, out);
    for (const Row& row : rows) table.add(row);
    table.finish();
}

}  // namespace vantrace
