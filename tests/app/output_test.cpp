#include "app/output/row_writer.h"
#include "app/program/figure_text.h"
#include "app/program/printable.h"
#include "platform/qt/json_text.h"
#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

constexpr std::array columns{
    Column{"text", "text", ValueForm::text},       Column{"figure", "figure", ValueForm::figure, 2},
    Column{"flag", "flag", ValueForm::flag},       Column{"time", "time", ValueForm::tenths},
    Column{"length", "long", ValueForm::duration}, Column{"hidden", "", ValueForm::count},
};

std::string written(Format format, const std::vector<Row>& rows) {
    std::ostringstream out;
    const std::unique_ptr<RowWriter> writer = makeRowWriter(format, columns, out);
    for (const Row& row : rows) writer->add(row);
    writer->finish();
    return out.str();
}

std::vector<Row> someRows() {
    const Instant time = *parseIsoText("2026-08-21T23:59:59.96Z");
    return {{"a,\"b\"\n\x1B", -0.001, true, time, 3725.0, std::int64_t{7}},
            {"plain", {}, {}, {}, {}, {}},
            {"", std::numeric_limits<double>::infinity(), false, "unreadable", 59.9, std::int64_t{-1}}};
}

TEST(RowWriter, QuotesCsvByItsStandardAndTellsAStreamThatTakesNoMore) {
    EXPECT_EQ(written(Format::csv, someRows()),
              "text,figure,flag,time,length,hidden\n"
              "\"a,\"\"b\"\"\n\x1B\",-0.001,1,2026-08-22T00:00:00.0Z,3725,7\n"
              "plain,,,,,\n"
              ",,0,unreadable,59.9,-1\n");
    std::ostringstream full;
    full.setstate(std::ios::badbit);
    EXPECT_THROW(makeRowWriter(Format::csv, columns, full)->add(someRows().front()), OutputFailure);
}

TEST(RowWriter, WritesJsonWithMembersInOrderAndNullForWhatIsMissing) {
    EXPECT_EQ(
        written(Format::json, someRows()),
        "[\n"
        "{\"text\":\"a,\\\"b\\\"\\n\\u001b\",\"figure\":-0.001,\"flag\":true,"
        "\"time\":\"2026-08-22T00:00:00.0Z\",\"length\":3725,\"hidden\":7},\n"
        "{\"text\":\"plain\",\"figure\":null,\"flag\":null,\"time\":null,\"length\":null,\"hidden\":null},\n"
        "{\"text\":\"\",\"figure\":null,\"flag\":false,\"time\":\"unreadable\",\"length\":59.9,\"hidden\":-1}"
        "\n"
        "]\n");
    EXPECT_EQ(written(Format::json, {}), "[]\n");
}

TEST(RowWriter, AlignsTablesAndRoundsTheirFigures) {
    EXPECT_EQ(written(Format::table, someRows()),
              "text     figure  flag                 time     long\n"
              "-------  ------  ----  -------------------  -------\n"
              "a,\"b\"??    0.00   yes  2026-08-22 00:00:00  1:02:05\n"
              "plain         -     -                    -        -\n"
              "              -    no           unreadable     1:00\n");
}

TEST(JsonRows, DoublesReadBackToTheSameBits) {
    const JsonRows rows({"x"});
    for (const double value : {0.1, 1.0 / 3.0, 6378.137000000001, -1.0e-300, 123456789.123456789}) {
        const std::string text = rows.object({value});
        EXPECT_EQ(std::strtod(text.c_str() + text.find(':') + 1, nullptr), value) << text;
    }
    EXPECT_EQ(rows.object({std::nan("")}), "{\"x\":null}");
    EXPECT_EQ(rows.object({std::string("\xFF")}), "{\"x\":\"\xEF\xBF\xBD\"}");
}

TEST(ShortestText, ReadsBackAndHasNoExponentInCommonRanges) {
    for (const double value : {0.1, 1.0 / 3.0, 1e-5, 123456.0, 1e14, 147739782.4, -0.000123}) {
        const std::string text = shortestText(value);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), value);
        EXPECT_EQ(text.find('e'), std::string::npos) << text;
    }
    EXPECT_EQ(shortestText(-0.0), "0");
    EXPECT_EQ(std::strtod(shortestText(1e300).c_str(), nullptr), 1e300);
    EXPECT_EQ(roundedText(-0.04, 1), "0.0");
    EXPECT_EQ(roundedText(-0.06, 1), "-0.1");
}

TEST(Printable, KeepsTextAndReplacesWhatSteersATerminal) {
    const std::string plain = "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x9B\xB0";
    const std::vector<std::pair<std::string, std::string>> cases{
        {plain, plain},          {"\x1B[31m\t\r\n\x7F", "?[31m????"},
        {"\xC2\x9B[2J", "?[2J"}, {"\xE2\x80\xAE!", "?!"},
        {"\xC3", "?"},           {"\xC0\xAF\xED\xA0\x80\xF5", "??????"}};
    for (const auto& [text, shown] : cases) EXPECT_EQ(printable(text), shown);
    EXPECT_EQ(displayWidth("Z\xC3\xBCrich"), 6U);
}

}  // namespace
}  // namespace vantrace
