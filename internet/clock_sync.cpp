#include "internet/clock_sync.h"

#include <cmath>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "catalogue/data_files.h"
#include "core/core_services.h"
#include "core/date_time.h"
#include "core/error_label.h"
#include "core/hosts.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "internet/updates_form.h"

namespace vantrace {

namespace {

constexpr int timeoutSeconds = 15;
constexpr std::string_view noConnection =
    "Couldn't connect to Time server, some firewall software can cause this, try again later";

int partOf(std::string_view text, int n, std::string_view delimiter) {
    const std::optional<double> part = toDouble(GetDelimitedWord(text, n, delimiter));
    if (!part) throw std::runtime_error("no date or time of a server: \"" + std::string(text) + "\"");
    return toInteger16(*part);
}

/// The server's "mm/dd/yyyy" and "hh:mm:ss". Throws std::exception where they are none.
double serverTime(const TimeClient& client) {
    const std::string date = client.date();
    const std::string time = client.timeOfDay();
    DateParts parts;
    parts.month = partOf(date, 1, "/");
    parts.day = partOf(date, 2, "/");
    parts.year = partOf(date, 3, "/");
    parts.hour = partOf(time, 1, ":");
    parts.minute = partOf(time, 2, ":");
    parts.second = partOf(time, 3, ":");
    return packDateTime(parts);
}

/// Seconds are looked at first: an hour, two minutes and three seconds are told as three seconds.
std::string sentence(const DateParts& difference, std::string_view word) {
    const std::string start = "Your PC's Clock is ";
    const std::string seconds = std::to_string(difference.second) + " Seconds " + std::string(word) + ". ";
    const std::string minutes = std::to_string(difference.minute) + " Minutes, and ";
    if (difference.second > 0) return start + seconds;
    if (difference.minute > 0) return start + minutes + seconds;
    if (difference.hour > 0) return start + std::to_string(difference.hour) + " Hours, " + minutes + seconds;
    return {};
}

void prepare(Services& services, const std::string& host) {
    services.timeClient.setTimeoutSeconds(timeoutSeconds);
    services.timeClient.setHost(host);
}

void setClock(UpdatesForm& form, Services& services, const std::string& host, ErrorLabel& label) {
    form.txtStatus += std::string(lineEnd) + "Synchronizing PC clock with Atomic Clock...";
    label.step([&] { services.events.yield(); });
    if (form.isUnloaded) return;
    int result = 1;
    label.step([&] {
        prepare(services, host);
        services.timeClient.QueryTime();
        result = services.timeClient.SetClock();
    });
    if (result != 0) {
        services.dialogs.message(noConnection);
        return;
    }
    const ClockParts now = services.clock.read().local;
    form.txtStatus += "Clock Synchronized, " + TimeText(now.hour, now.minute, now.second) + " Local Time" +
                      std::string(lineEnd);
    Speak(services, "Clock Syncronized.");
}

/// What the user is told of the difference, and what he wants then.
void compare(UpdatesForm& form, Services& services, const std::string& host, ErrorLabel& label) {
    double net = 0;
    double pc = 0;
    label.step([&] { net = serverTime(services.timeClient); });
    label.step([&] { pc = NowLocal(services.clock); });
    const std::string_view word = pc < net ? "Slow" : "Fast";
    DateParts difference{};
    label.step([&] { difference = dateParts(std::abs(pc - net)); });
    if (difference.hour == 0 && difference.minute == 0 && difference.second < 2) {
        constexpr std::string_view perfect = "Your PC is perfectly syncronized.";
        services.dialogs.message(perfect);
        Speak(services, perfect);
        return;
    }
    const std::string text = sentence(difference, word);
    Speak(services, text);
    const bool isWanted = services.dialogs.question(text + " Synchronize ?", "PC Clock Accuracy");
    if (form.isUnloaded) return;
    if (isWanted) {
        setClock(form, services, host, label);
    } else {
        form.txtStatus += std::string(lineEnd) + "Clock Not Synchronised";
    }
}

}  // namespace

void BUTsyncClock_Click(UpdatesForm& form, ProgramState& state, Services& services) {
    if (form.isWorking) return;
    const UpdateJob job(form);
    ErrorLabel label(services, labels::updateCONSyncClock);
    const std::string end(lineEnd);
    const std::string host = readHosts(state).timeHost;
    form.txtStatus += "Checking your PC clock with Atomic Clock..." + end;
    form.txtStatus += end + "Connecting to Atomic Clock Server..." + end;
    // So that it is read while the server is asked.
    label.step([&] { services.events.yield(); });
    if (form.isUnloaded) return;
    int result = 1;
    label.step([&] {
        prepare(services, host);
        result = services.timeClient.QueryTime();
    });
    if (result == 0) return compare(form, services, host, label);
    form.txtStatus += end + std::string(noConnection) + ", if you have a firewall, try allowing access to " +
                      host.substr(0, host.find(':')) + " on port 13";
}

}  // namespace vantrace
