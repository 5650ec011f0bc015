#include "flares/iridium_flares.h"

#include <sys/stat.h>

#include "core/program_state.h"
#include "tests/flares/flare_pages.h"
#include "tests/support/test_services.h"

namespace vantrace {
namespace {

class IridiumFlaresTest : public ::testing::Test {
  protected:
    IridiumFlaresTest() {
        fakes.folder.write("hosts.dat", "flareHost=flares.test\r\nhomePage=https://home.test/\r\n");
        fakes.clock.setUtc({2026, 12, 30, 20, 0, 0}, 60);
        state.AppPath = fakes.folder.appPath();
        state.ObserverName = "Vienna";
        state.ObserverLatitude = 48.21;
        state.ObserverLongitude = 343.63;
    }
    /// The next retrievals bring that page.
    void serve(const std::string& page) {
        fakes.fetcher.onFetch = [this, page](const FakeFetcher::Request&) {
            fakes.folder.write("flares.tmp", page);
            return std::nullopt;
        };
    }
    void retrieve() { BUTgetFlares_Click(form, state, services); }
    void load() { Form_Load(form, state, services); }
    void addRows() {
        fakes.folder.write(
            "flares.dat",
            std::string(goodLine) + "06 JAN;01:02:03;-0.5;7;9;1234567.8 km;-8.25;Iridium 100 (old)\r\n");
        load();
    }

    static constexpr std::string_view errorCaption = " (Requires Internet Connection) - Error in Data";
    static constexpr std::string_view badPage =
        "There was a problem with the Flare Results, the server is either busy or not online...Also check "
        "that your Latitude and longitude are correct, Here is the first section of the data sent from the "
        "server : \r\n";
    static constexpr std::string_view goodLine = "05 JAN;22:05:33;-3;34;254;12.3 km;-8;Iridium 23\r\n";

    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
    IridiumFlaresForm form;
};

TEST_F(IridiumFlaresTest, ARetrievalFillsTheListAndTheFile) {
    load();
    EXPECT_EQ(form.Label1, " (Requires Internet Connection)");
    form.LSTflares.resize(3);
    fakes.events.onYield = [&] {
        EXPECT_EQ(form.Label1, " (Requires Internet Connection) - Connecting");
        EXPECT_TRUE(form.LSTflares.empty());
        EXPECT_TRUE(fakes.fetcher.requests.empty());
        retrieve();  // pressed once more
    };
    serve(pageStart + flareRow() + pageEnd);
    retrieve();
    EXPECT_EQ(fakes.events.yields, 1);
    ASSERT_EQ(fakes.fetcher.requests.size(), 1U);
    EXPECT_EQ(fakes.fetcher.requests[0].url,
              "http://flares.test/iridium.asp?lat=48.21&lng=16.37&alt=0&loc=Unspecified&TZ=UCT&Dur=7");
    EXPECT_EQ(fakes.fetcher.requests[0].file, fakes.folder.appPath() + "flares.tmp");
    EXPECT_EQ(form.Label1, "Complete ! - Results are saved to memory");
    EXPECT_EQ(form.LSTflares.size(), 1U);
    EXPECT_EQ(fakes.folder.read("flares.dat"), goodLine);
    EXPECT_FALSE(fakes.folder.exists("flares.tmp"));
    EXPECT_TRUE(fakes.dialogs.messages.empty());

    const FlareList before = form.LSTflares;
    form = {};
    load();
    EXPECT_EQ(form.LSTflares, before) << "shown again the next time";

    fakes.events.onYield = nullptr;
    serve(pageStart + pageEnd);
    retrieve();
    EXPECT_EQ(form.Label1, "Complete ! - Results are saved to memory") << "no flares are a good result";
    EXPECT_TRUE(fakes.folder.exists("flares.dat"));
    EXPECT_EQ(fakes.folder.read("flares.dat"), "");
}

TEST_F(IridiumFlaresTest, ABadPageIsShownAndTheOldFlaresStay) {
    fakes.folder.write("flares.dat", goodLine);
    const Texts pages{"Server\r\nbusy <B>",
                      "",
                      "\xFF\xFE" + std::string("i\0s\0t\0a\0n\0c\0e\0", 14),
                      std::string(10'000'000, '\0'),
                      pageStart + flareRow().substr(0, flareRow().find("12.3")),
                      pageStart + flareRow() + flareRow({"no day", "1:00"}) + pageEnd};
    for (const std::string& page : pages) {
        serve(page);
        retrieve();
        EXPECT_EQ(form.Label1, errorCaption);
        EXPECT_EQ(fakes.dialogs.messages.back(), std::string(badPage) + form.txtHTML);
        EXPECT_EQ(fakes.folder.read("flares.tmp"), page) << "left lying";
    }
    EXPECT_EQ(form.LSTflares.size(), 2U) << "partly filled";
    EXPECT_EQ(fakes.dialogs.messages[0], std::string(badPage) + "Serverbusy <B>");
    EXPECT_EQ(fakes.dialogs.messages.size(), pages.size());
    EXPECT_EQ(fakes.folder.read("flares.dat"), goodLine);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(IridiumFlaresTest, AFailedFetchGoesOnWithWhateverPageThereIs) {
    const auto fail = [](const FakeFetcher::Request&) { return FetchError{"Not Found", 404}; };
    const std::string told = "An error happend when getting the data from Orbisky : Not Found (404)";
    fakes.fetcher.onFetch = fail;
    form.txtHTML = "the page before";
    retrieve();
    EXPECT_EQ(fakes.dialogs.messages, (Texts{told, std::string(badPage)}));
    EXPECT_EQ(form.Label1, errorCaption);

    fakes.folder.write("flares.tmp", pageStart + flareRow() + pageEnd);
    retrieve();
    EXPECT_EQ(fakes.dialogs.messages.size(), 3U);
    EXPECT_EQ(fakes.dialogs.messages.back(), told);
    EXPECT_EQ(fakes.folder.read("flares.dat"), goodLine);
}

TEST_F(IridiumFlaresTest, FlaresThatCannotBeWrittenAreAFailure) {
    std::filesystem::create_directory(fakes.folder.path() / "flares.dat");
    serve(pageStart + flareRow() + pageEnd);
    retrieve();
    EXPECT_EQ(form.Label1, errorCaption);
    EXPECT_EQ(form.LSTflares.size(), 1U);
    EXPECT_TRUE(fakes.folder.exists("flares.tmp"));
    // A page that is a pipe is not waited for.
    std::filesystem::remove(fakes.folder.path() / "flares.tmp");
    ASSERT_EQ(mkfifo((fakes.folder.path() / "flares.tmp").c_str(), 0600), 0);
    fakes.fetcher.onFetch = nullptr;
    retrieve();
    EXPECT_EQ(fakes.dialogs.messages.size(), 2U);
}

TEST_F(IridiumFlaresTest, AWindowClosedBeforeTheFetchFetchesNothing) {
    fakes.events.onYield = [&] { Form_Unload(form); };
    retrieve();
    // The end of the program closes the windows without unloading them.
    form = {};
    fakes.events.onYield = [&] { state.MainTag = "exit"; };
    retrieve();
    EXPECT_TRUE(fakes.fetcher.requests.empty());
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(IridiumFlaresTest, AnUnreadableFileIsLoggedAndTheWindowOpens) {
    fakes.settings.set("Skin", "1");
    load();
    EXPECT_TRUE(fakes.logLines().empty()) << "a first start has no file";
    std::filesystem::create_directory(fakes.folder.path() / "flares.dat");
    form = {};
    load();
    EXPECT_EQ(fakes.logged("IridiumFormLoad"), 1);
    EXPECT_TRUE(form.skin.isApplied);
    EXPECT_EQ(form.Label1, " (Requires Internet Connection)");
}

const std::string report =
    "DATE     TIME        MAG  EL   AZ    DISTANCE  MAX-MAG  SATELLITE\r\n"
    "------------------------------------------------------------------\r\n"
    "05 JAN   22:05:33    -3   34   254   12.3 km   -8       Iridium 23  \r\n"
    "06 JAN   01:02:03    -0.5 7    9     1234567.8 -8.25    Iridium 100 \r\n";
const std::string reportTitle =
    "Iridium Satellite Flares for 7 days for Vienna\r\n"
    "Created by Vantrace, https://home.test/, from predictions of Orbisky, http://flares.test\r\n\r\n";

TEST_F(IridiumFlaresTest, TheSavedFileIsTheReportByteByByte) {
    addRows();
    BUTsave_Click(form, state, services);
    EXPECT_TRUE(fakes.dialogs.messages.empty()) << "the user cancelled";
    fakes.dialogs.chosen = fakes.folder.path() / "mine.txt";
    fakes.folder.write("mine.txt", std::string(5000, 'x'));
    BUTsave_Click(form, state, services);
    EXPECT_EQ(fakes.folder.read("mine.txt"), reportTitle + report);
    ASSERT_EQ(fakes.dialogs.requests.size(), 2U);
    EXPECT_EQ(fakes.dialogs.requests[1].title, "Save Predicted results to file");
    EXPECT_EQ(fakes.dialogs.requests[1].start, "Iridium.txt");
    EXPECT_EQ(fakes.dialogs.messages, Texts{"Predictions saved as " + fakes.dialogs.chosen->string()});

    fakes.dialogs.chosen = fakes.folder.path() / "none" / "mine.txt";
    BUTsave_Click(form, state, services);
    EXPECT_EQ(fakes.logged("Iridium - SaveClick"), 1);
    EXPECT_EQ(fakes.dialogs.messages.size(), 2U) << "the next step runs all the same";
}

TEST_F(IridiumFlaresTest, ThePrintedReportHasItsColours) {
    addRows();
    BUTprint_Click(form, state, services);
    BUTprint_Click(form, state, services);
    ASSERT_EQ(fakes.printer.documents.size(), 2U);
    const PrintDocument& document = fakes.printer.documents[1];
    EXPECT_EQ(document.face, "Lucida Console");
    const std::size_t rowsStart = report.find("05 JAN");
    EXPECT_EQ(document.parts,
              (std::vector<PrintDocument::Part>{{0x000080, false, reportTitle},
                                                {0x800000, false, report.substr(0, rowsStart)},
                                                {0x000000, false, report.substr(rowsStart)}}));
    EXPECT_TRUE(fakes.printer.titles.empty()) << "the default printer, without a question";
    fakes.printer.hasDefault = false;
    BUTprint_Click(form, state, services);
    EXPECT_EQ(fakes.printer.titles, Texts{"Print Iridium Flare Predictions"});
    fakes.printer.failure = "no paper";
    EXPECT_THROW(BUTprint_Click(form, state, services), std::runtime_error) << "the window tells it";
}

}  // namespace
}  // namespace vantrace
