// The whole retrieval over the program's own fetcher and a real server on this machine.

#include "core/program_state.h"
#include "flares/iridium_flares.h"
#include "internet/element_server/http_fetcher.h"
#include "platform/qt/qt_http_client.h"
#include "tests/flares/flare_pages.h"
#include "tests/support/loopback_server.h"
#include "tests/support/test_services.h"

namespace vantrace {
namespace {

class RetrievalOverHttpTest : public ::testing::Test {
  protected:
    RetrievalOverHttpTest()
        : server([this](const HttpServer::Request&, LoopbackServer::Connection& connection) {
              connection.write(answer);
          }) {
        state.AppPath = fakes.folder.appPath();
        state.ObserverLatitude = -33.9;
        state.ObserverLongitude = 208.8;
        fakes.folder.write("hosts.dat", "flareHost=" + server.address() + "\r\n");
        fakes.folder.write("flares.dat", wholeLine);
    }
    void retrieve(const std::string& served) {
        answer = served;
        BUTgetFlares_Click(form, state, services);
    }
    bool isComplete() const { return form.Label1 == "Complete ! - Results are saved to memory"; }

    std::string answer;
    HttpServer server;
    TestServices fakes;
    ProgramState state;
    QtHttpClient client{"Vantrace/0"};
    HttpFetcher fetcher{client, fakes.clock, state, [](std::string_view) {}};
    Services services{fakes.clock,   fakes.events,         fakes.settings,      fakes.speech,
                      fakes.dialogs, fakes.desktop,        fakes.displayMode,   fakes.process,
                      fakes.capture, fakes.pictures,       fakes.textPainter,   fakes.printer,
                      fetcher,       fakes.timeClient,     fakes.linePublisher, fakes.errorLog,
                      fakes.windows, fakes.services.format};
    IridiumFlaresForm form;
};

TEST_F(RetrievalOverHttpTest, AGoodPageBecomesTheList) {
    retrieve(
        httpAnswer("200 OK", pageStart + flareRow() + flareRow({"6 Jan", "1:02:03", "Iridium 9"}) + pageEnd));
    EXPECT_TRUE(isComplete()) << form.txtHTML;
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_EQ(fakes.folder.read("flares.dat"),
              wholeLine + "06 JAN;01:02:03;-3;34;254;12.3 km;-8;Iridium 9\r\n");
    EXPECT_FALSE(fakes.folder.exists("flares.tmp"));
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.requests()[0].target,
              "/iridium.asp?lat=-33.9&lng=151.2&alt=0&loc=Unspecified&TZ=UCT&Dur=7");
}

TEST_F(RetrievalOverHttpTest, AFailedFetchIsToldBeforeThePageThatIsMissing) {
    retrieve(httpAnswer("404 Not Found", pageStart + flareRow() + pageEnd));
    EXPECT_FALSE(isComplete());
    ASSERT_EQ(fakes.dialogs.messages.size(), 2U);
    EXPECT_EQ(fakes.dialogs.messages[0],
              "An error happend when getting the data from Orbisky : Not Found (404)");
    EXPECT_TRUE(fakes.dialogs.messages[1].starts_with("There was a problem with the Flare Results"));
    EXPECT_EQ(fakes.folder.read("flares.dat"), wholeLine);
}

}  // namespace
}  // namespace vantrace
