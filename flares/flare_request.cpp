#include "flares/flare_request.h"

#include "core/config.h"
#include "core/hosts.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

double eastLongitude(double west) {
    return west < 180.0 ? -west : 360.0 - west;
}

}  // namespace

std::string flareService(const ProgramState& state) {
    return "http://" + readHosts(state).flareHost;
}

std::string flareUrl(const ProgramState& state) {
    const std::string latitude = numberTextWithoutLeadingZero(state.ObserverLatitude);
    const std::string longitude = numberTextWithoutLeadingZero(eastLongitude(state.ObserverLongitude));
    return flareService(state) + "/iridium.asp?lat=" + latitude + "&lng=" + longitude +
           "&alt=0&loc=Unspecified&TZ=UCT&Dur=7";
}

std::optional<FetchError> fetchFlares(Services& services, const std::string& url, const std::string& file) {
    Fetcher& Sweb1 = services.fetcher;
    if (GetConfig(services, settings::proxyOn) != "1") return Sweb1.FetchToFile(url, file);
    const std::string host = GetConfig(services, settings::proxyHost);
    const std::string port = GetConfig(services, settings::proxyPortForFlares);
    const std::string user = GetConfig(services, settings::proxyUser);
    const std::string password = GetConfig(services, settings::proxyPass);
    return Sweb1.FetchToFileViaProxy(url, file, host, port, user, password);
}

std::string readFlarePage(const std::string& file) {
    const std::string content = readTextFile(file, flarePageLimitBytes);
    std::string page;
    page.reserve(content.size());
    for (LineReader lines(content); !lines.atEnd();) page += lines.next();
    // A carriage return alone ends a line, too; a date with one inside would be none.
    std::erase(page, '\r');
    return asUtf8(page);
}

}  // namespace vantrace
