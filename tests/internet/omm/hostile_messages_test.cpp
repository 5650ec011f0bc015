// Contents that mean harm, or came through damaged.
#include "tests/internet/omm/omm_test.h"

namespace vantrace {
namespace {

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(HostileMessagesTest, WhatIsNoMessageHasNoHeadingAndGivesNothing) {
    const std::string contents[] = {
        "",
        "\n\n",
        "No GP data found",
        std::string(4096, '\0'),
        std::string("\x7f"
                    "ELF\x02\x01\x01\0\0<omm>",
                    14),
        "<!DOCTYPE html><html><body>Forbidden</body></html>",
        "<html><body>Try later</body></html>",
        "[]",
        "{\"message\":\"rate limit\"}",
        "a,b,c\n1,2,3\n",
        "OBJECT_NAME = ISS\n",
        std::string(goodSet),
        repeated("[", 1 << 20),
        repeated("{\"a\":", 1 << 18),
        repeated("<a>", 1 << 18),
        repeated("a", 1 << 22),
        repeated(",", 1 << 20),
        repeated("\"", (1 << 20) + 1),
    };
    for (const std::string& content : contents) {
        const ThreeLineConversion conversion = threeLinesFromMessages(content);
        EXPECT_FALSE(conversion.hasHeading) << content.substr(0, 60);
        EXPECT_EQ(conversion.good, 0) << content.substr(0, 60);
        EXPECT_EQ(conversion.text, "") << content.substr(0, 60);
    }
}

struct DamagedCase {
    std::string content;
    int good;
    std::size_t refused;
};

void expectCases(const std::vector<DamagedCase>& cases) {
    for (const DamagedCase& each : cases) {
        const ThreeLineConversion conversion = threeLinesFromMessages(each.content);
        EXPECT_TRUE(conversion.hasHeading) << each.content.substr(0, 300);
        EXPECT_EQ(conversion.good, each.good) << each.content.substr(0, 300);
        EXPECT_EQ(conversion.refused.size(), each.refused) << each.content.substr(0, 300);
        EXPECT_EQ(conversion.text, repeated(goodSet, each.good)) << each.content.substr(0, 300);
    }
}

TEST(HostileMessagesTest, ADamagedLineOfATableCostsItselfAlone) {
    const std::string heading = goodHeading + "\n";
    const std::string& noEnd = goodRow;
    const std::string row = noEnd + "\n";
    expectCases({
        {heading, 0, 0},
        {"\xEF\xBB\xBF" + heading + row, 1, 0},
        {heading + row + "\"" + row + row, 2, 1},
        {heading + noEnd + "\r\n\r\n" + noEnd, 2, 0},
        {heading + row + row.substr(0, 40), 1, 1},
        {heading + row + noEnd + ",more\n" + row, 2, 1},
        {heading + repeated(",", 1 << 20) + "\n" + row, 1, 1},
        {heading + row + heading + row, 2, 0},
        {heading + row + std::string(5, '\0') + "\n", 1, 1},
        {"MORE," + heading + "\"a \"\"quoted\"\", word\"," + row, 1, 0},
    });
}

TEST(HostileMessagesTest, ADamagedJsonObjectCostsItselfAlone) {
    const std::string good = jsonMessage();
    std::string unclosed = good;
    unclosed.erase(unclosed.find('"', unclosed.find("17.1615")), 1);
    const std::string lines = [&] {
        std::string text = unclosed;
        for (std::size_t at = 0; (at = text.find(",\"", at)) != std::string::npos; at += 2)
            text.insert(at + 1, "\n");
        return text;
    }();
    expectCases({
        {good, 1, 0},
        {"[" + good + "," + good + "]", 2, 0},
        {"\n [" + good + "," + good.substr(0, 100), 1, 1},
        // A missing quote turns all that follows inside out, up to the next line.
        {"[" + good + ",\n" + unclosed + ",\n" + good + "]", 1, 1},
        {"[" + good + ",\n" + lines + "," + good + "]", 2, 1},
        {"[" + good + ",{\"EPOCH\":1e999,\"MEAN_MOTION\":NaN}," + good + "]", 2, 1},
        {"[" + good + ",{\"EPOCH\":null,\"MEAN_MOTION\":[]}," + good + "]", 2, 1},
        {"[" + good + "," + repeated("{\"a\":", 5000) + "1" + repeated("}", 5000) + "," + good + "]", 2, 1},
        {"[" + good + ",{\"a\":\"" + std::string(1 << 20, 'x') + "\"}," + good + "]", 2, 1},
        {"[{\"a\":\"\\\"}{\"}," + good + "]", 1, 1},
        {"{\"omm\":" + good + "}", 1, 0},
    });
}

TEST(HostileMessagesTest, XmlWithEntitiesOrDepthOfItsOwnIsNotRead) {
    const std::string good = xmlMessage();
    std::string bomb = "<!DOCTYPE a [<!ENTITY a \"aaaaaaaaaa\">";
    for (char c = 'b'; c <= 'k'; ++c) {
        const std::string before(1, static_cast<char>(c - 1));
        bomb += std::string("<!ENTITY ") + c + " \"" + repeated("&" + before + ";", 10) + "\">";
    }
    bomb += "]><ndm><omm><OBJECT_NAME>&k;</OBJECT_NAME></omm></ndm>";
    const ThreeLineConversion exploded = threeLinesFromMessages(bomb);
    EXPECT_EQ(exploded.good, 0);
    EXPECT_EQ(exploded.refused.size(), 1U);
    EXPECT_FALSE(threeLinesFromMessages("<!DOCTYPE a SYSTEM \"file:///etc/passwd\">" + good).hasHeading);
    expectCases({
        {good, 1, 0},
        {"<ndm>" + good + good + "</ndm>", 2, 0},
        {"<ndm>" + good + good.substr(0, 200), 1, 1},
        {"<ndm>" + good + "<omm></other>" + good, 1, 1},
        {"<ndm>" + good + "<omm/>" + good + "</ndm>", 2, 1},
        {"<ndm>" + good + repeated("<a>", 1 << 16), 1, 1},
        {"<ndm>" + good + "<omm><OBJECT_NAME>" + std::string(1 << 20, 'x') + "</OBJECT_NAME></omm>" + good +
             "</ndm>",
         2, 1},
        {"<ndm>" + good + std::string(4, '\0') + good, 1, 1},
    });
}

TEST(HostileMessagesTest, LinesOfKeysMayComeWithoutOrderOrEnd) {
    const std::string good = keyValueMessage(goodWords());
    expectCases({
        {good.substr(0, good.size() - 1), 1, 0},
        {"COMMENT made by hand\n\n" + good + "COMMENT = 5\nUSER_DEFINED_X = 1\n" + good, 2, 0},
        {good + good.substr(0, 100), 1, 1},
        {good + "CCSDS_OMM_VERS = 2.0\n", 1, 0},
        {good + std::string(1 << 20, '=') + "\n" + good, 2, 0},
    });
}

TEST(HostileMessagesTest, MillionsOfBadLinesLeaveAThousandRemarks) {
    const ThreeLineConversion conversion =
        threeLinesFromMessages(goodHeading + "\n" + repeated("x\n", 1000000));
    EXPECT_EQ(conversion.refused.size(), 1000U);
    EXPECT_EQ(conversion.furtherRefused, 999000U);
}

}  // namespace
}  // namespace vantrace
