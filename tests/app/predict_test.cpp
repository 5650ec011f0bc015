#include "app/output/calendar_text.h"
#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "passes/calc_results.h"
#include "passes/pass_prediction_form.h"
#include "passes/results.h"
#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

/// One component of a calendar: names and values of its lines.
using Component = std::multimap<std::string, std::string>;

/// Takes an iCalendar object apart by the rules of RFC 5545, and fails the test where it breaks them.
class Calendar {
  public:
    explicit Calendar(const std::string& text) {
        for (const std::string& line : unfolded(text)) {
            const std::size_t colon = line.find(':');
            EXPECT_NE(colon, std::string::npos) << line;
            if (colon != std::string::npos) take(line.substr(0, colon), line.substr(colon + 1));
        }
        EXPECT_TRUE(m_open.empty()) << "every BEGIN has its END";
    }

    Component head;
    std::vector<Component> events;

    static std::string plain(const std::string& value) {
        std::string text;
        for (std::size_t i = 0; i < value.size(); ++i) {
            EXPECT_TRUE(value[i] != ',' && value[i] != ';') << "not escaped in " << value;
            if (value[i] != '\\') {
                text += value[i];
                continue;
            }
            EXPECT_LT(++i, value.size());
            EXPECT_NE(std::string("nN\\;,").find(value[i]), std::string::npos);
            text += value[i] == 'n' || value[i] == 'N' ? '\n' : value[i];
        }
        return text;
    }

  private:
    static Texts unfolded(const std::string& text) {
        Texts lines;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find("\r\n", start);
            EXPECT_NE(end, std::string::npos) << "each line has its end";
            if (end == std::string::npos) break;
            const std::string line = text.substr(start, end - start);
            EXPECT_LE(line.size(), 75U) << line;
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
            if (line.starts_with(' ') && !lines.empty()) {
                lines.back() += line.substr(1);
            } else {
                lines.push_back(line);
            }
            start = end + 2;
        }
        return lines;
    }
    void take(const std::string& name, const std::string& value) {
        if (name == "BEGIN") {
            m_open.push_back(value);
            if (value == "VEVENT") events.emplace_back();
        } else if (name == "END") {
            ASSERT_FALSE(m_open.empty());
            EXPECT_EQ(m_open.back(), value);
            m_open.pop_back();
        } else {
            ASSERT_FALSE(m_open.empty());
            (m_open.back() == "VEVENT" ? events.back() : head).emplace(name, value);
        }
    }

    Texts m_open;
};

class PredictTest : public CliTest {
  protected:
    PredictTest() {
        folder.write("pass.dat",
                     "Both\r\nISS (ZARYA);\r\nGOES 19;\r\n2\r\n1\r\n1\r\nBroken\r\nNOBODY;\r\nISS "
                     "(ZARYA);\r\n2\r\n0\r\n0\r\n");
        folder.write("hosts.dat", "homePage=https://home.example/\r\n");
    }
    /// The file that the window saves.
    std::string savedByTheWindow(const Texts& names, std::int16_t day) {
        TestServices window;
        window.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
        ProgramState state;
        state.AppPath = folder.appPath();
        state.MainTag = "pass";
        state.ObserverLatitude = 52;
        state.ObserverLongitude = 355;
        state.ObserverHeight = 10;
        state.OrbitEngine = std::make_shared<OrbitEngine>(&window.clock);
        state.OrbitEngine->EngineSetKepPath(folder.appPath());
        state.OrbitEngine->EngineSetLatitude(52);
        state.OrbitEngine->EngineSetLongitude(5);
        state.OrbitEngine->EngineSetHeight(10);
        PassPredictionForm form;
        for (const std::string& name : names) CalcResults(form, state, window.services, name, day, 8, 2026);
        window.dialogs.chosen = window.folder.path() / "saved.txt";
        BUTsaveresults_Click(form, state, window.services);
        return window.folder.read("saved.txt");
    }
};

TEST_F(PredictTest, TheTextIsTheFileThatTheWindowSavesByteByByte) {
    const CliResult one = run({"predict", "ISS (ZARYA)", "--date", "2026-08-22"});
    EXPECT_EQ(one.status, 0);
    EXPECT_EQ(one.out, savedByTheWindow({"ISS (ZARYA)"}, 22));
    EXPECT_GT(one.lines().size(), 6U);
    EXPECT_EQ(run({"predict", "ISS (ZARYA)", "--date", "2026-08-22", "--format", "text"}).out, one.out);
    EXPECT_EQ(run({"predict", "ISS (ZARYA)"}).out, savedByTheWindow({"ISS (ZARYA)"}, 21)) << "today";
    EXPECT_EQ(run({"predict", "ISS (ZARYA)", "GOES 19", "--date", "2026-08-22"}).out,
              savedByTheWindow({"ISS (ZARYA)", "GOES 19"}, 22));
}

TEST_F(PredictTest, CsvAndJsonHaveTheTextsOfTheWindowAndTimesInUtc) {
    const CliResult result = runCsv({"predict", "ISS (ZARYA)", "--date", "2026-08-22"});
    EXPECT_EQ(result.lines().at(0),
              "satellite,date,time,start_az,max_elevation,duration,end_az,sunlit,visible,start_utc,end_utc,"
              "length_s");
    const Texts passes = csvColumn(
        runCsv({"passes", "ISS (ZARYA)", "--from", "2026-08-21T00:00Z", "--days", "3"}), "rise_utc");
    const Texts starts = csvColumn(result, "start_utc");
    ASSERT_GT(starts.size(), 3U);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        EXPECT_EQ(std::ranges::count_if(passes,
                                        [&](const std::string& rise) {
                                            const auto from = parseIsoText(rise);
                                            const auto to = parseIsoText(starts[i]);
                                            return from && to && std::abs(secondsBetween(*from, *to)) <= 0.51;
                                        }),
                  1)
            << starts[i];
        const auto seconds =
            secondsBetween(*parseIsoText(starts[i]), *parseIsoText(csvColumn(result, "end_utc")[i]));
        EXPECT_NEAR(seconds, csvFigures(result, "length_s")[i], 1e-3);
        EXPECT_TRUE(csvColumn(result, "sunlit")[i] == "Yes" || csvColumn(result, "sunlit")[i] == "No");
    }
    const CliResult json = run({"predict", "ISS (ZARYA)", "--date", "2026-08-22", "--format", "json"});
    EXPECT_EQ(json.status, 0);
    EXPECT_NE(json.out.find("\"max_elevation\""), std::string::npos);
}

TEST_F(PredictTest, TheCalendarHasAnEventForEachPassAndKeepsItsNames) {
    const Texts arguments{"predict", "ISS (ZARYA)", "--date", "2026-08-22", "--format", "ics"};
    const CliResult result = run(arguments);
    EXPECT_EQ(result.status, 0);
    const Calendar calendar(result.out);
    EXPECT_EQ(calendar.head.find("VERSION")->second, "2.0");
    EXPECT_EQ(calendar.head.count("PRODID"), 1U);
    const CliResult csv = runCsv({"predict", "ISS (ZARYA)", "--date", "2026-08-22"});
    ASSERT_EQ(calendar.events.size(), csvColumn(csv, "start_utc").size());
    std::map<std::string, int> names;
    for (std::size_t i = 0; i < calendar.events.size(); ++i) {
        const Component& event = calendar.events[i];
        for (const char* once : {"UID", "DTSTAMP", "DTSTART", "DTEND", "SUMMARY"})
            EXPECT_EQ(event.count(once), 1U);
        std::string start = csvColumn(csv, "start_utc")[i];
        std::erase_if(start, [](char sign) { return sign == '-' || sign == ':'; });
        EXPECT_EQ(event.find("DTSTART")->second, start);
        EXPECT_EQ(event.find("DTSTAMP")->second, "20260821T200000Z");
        EXPECT_GT(event.find("DTEND")->second, start);
        EXPECT_TRUE(Calendar::plain(event.find("SUMMARY")->second).starts_with("ISS (ZARYA), up to "));
        EXPECT_NE(Calendar::plain(event.find("DESCRIPTION")->second).find("\nVisible: "), std::string::npos);
        ++names[event.find("UID")->second];
    }
    EXPECT_EQ(names.size(), calendar.events.size());
    fakes.clock.advanceSeconds(3600);
    for (const Component& event : Calendar(run(arguments).out).events) {
        EXPECT_EQ(names.count(event.find("UID")->second), 1U) << "the same pass, another time";
        EXPECT_EQ(event.find("DTSTAMP")->second, "20260821T210000Z");
    }
}

TEST_F(PredictTest, CalendarTextsAreEscapedAndFoldedBetweenCharacters) {
    CalendarEvent event;
    event.uid = "1@vantrace";
    for (int i = 0; i < 60; ++i) event.summary += "\xC3\xA3,;\\\n";
    const Calendar calendar(calendarText({event}, {}));
    EXPECT_EQ(Calendar::plain(calendar.events.at(0).find("SUMMARY")->second), event.summary);
    const std::string folded = foldedLine("ab" + std::string(100, 'x') + "\xC3\xA3");
    EXPECT_EQ(folded, "ab" + std::string(73, 'x') + "\r\n " + std::string(27, 'x') + "\xC3\xA3\r\n");
    for (std::size_t length = 60; length < 90; ++length) {
        const std::string line = foldedLine(std::string(length, 'x') + "\xC3\xA3\xE2\x82\xAC");
        for (std::size_t at = line.find("\r\n "); at != std::string::npos; at = line.find("\r\n ", at + 1)) {
            EXPECT_NE(static_cast<unsigned char>(line[at + 3]) & 0xC0U, 0x80U);
        }
    }
}

TEST_F(PredictTest, SortVisibleOnlyAndTheLeastElevationOfTheSettingsActAsInTheWindow) {
    const Texts two{"predict", "ISS (ZARYA)", "ISS (ZARYA)", "--date", "2026-08-22"};
    Texts sorted = two;
    sorted.emplace_back("--sort");
    const Texts times = csvColumn(runCsv(sorted), "time");
    EXPECT_TRUE(std::ranges::is_sorted(times));
    EXPECT_FALSE(std::ranges::is_sorted(csvColumn(runCsv(two), "time")));
    for (const std::string& text :
         csvColumn(runCsv({"predict", "ISS (ZARYA)", "--date", "2026-08-22", "--visible-only"}), "visible")) {
        EXPECT_EQ(text, "Yes");
    }
    EXPECT_FALSE(fakes.settings.get("WxEL").has_value()) << "nothing is stored";
    fakes.settings.set("WxEL", "40");
    const Texts high = csvColumn(runCsv(two), "max_elevation");
    EXPECT_LT(high.size(), times.size());
    for (const std::string& elevation : high) EXPECT_GE(std::stod(elevation), 40);
}

TEST_F(PredictTest, AJobRunsOverItsDaysAndActsOnNoFlag) {
    const CliResult job = run({"job", "Both", "--date", "2026-08-31"});
    EXPECT_EQ(job.status, 0);
    EXPECT_NE(job.out.find("31 AUG"), std::string::npos);
    EXPECT_NE(job.out.find("01 SEP"), std::string::npos);
    EXPECT_TRUE(job.err.empty());
    EXPECT_FALSE(std::filesystem::exists("Vantrace.txt"));
    EXPECT_EQ(
        csvColumn(runCsv({"job", "Both", "--date", "2026-08-22"}), "satellite").size(),
        csvColumn(runCsv({"predict", "ISS (ZARYA)", "GOES 19", "--date", "2026-08-22"}), "satellite").size() +
            csvColumn(runCsv({"predict", "ISS (ZARYA)", "GOES 19", "--date", "2026-08-23"}), "satellite")
                .size());

    const CliResult broken = run({"job", "Broken", "--date", "2026-08-22"});
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(std::ranges::count(broken.err, '\n'), 2) << "told for each day";
    EXPECT_NE(broken.out.find("ISS (ZARYA)"), std::string::npos);
}

TEST_F(PredictTest, MistakesAreTold) {
    EXPECT_EQ(run({"predict", "NOBODY"}).status, 2);
    for (const char* date :
         {"2026-02-29", "22.8.2026", "2026-8-22", "2026-13-01", "1800-01-01", "", "2026-08-22T00"}) {
        const CliResult result = run({"predict", "ISS (ZARYA)", "--date", date});
        EXPECT_EQ(result.status, 2) << date;
        EXPECT_NE(result.err.find("--date"), std::string::npos);
    }
    EXPECT_EQ(run({"predict", "ISS (ZARYA)", "--format", "table"}).status, 2);
    EXPECT_EQ(run({"passes", "ISS (ZARYA)", "--format", "ics"}).status, 2);
    const CliResult job = run({"job", "Neither"});
    EXPECT_EQ(job.status, 2);
    EXPECT_NE(job.err.find("\"Both\", \"Broken\""), std::string::npos);
    std::filesystem::remove(folder.path() / "pass.dat");
    EXPECT_EQ(run({"job", "Both"}).status, 2);
}

}  // namespace
}  // namespace vantrace
