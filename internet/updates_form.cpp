#include "internet/updates_form.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "catalogue/data_files.h"
#include "core/config.h"
#include "core/numbers.h"
#include "core/services.h"
#include "platform/file_error.h"

namespace vantrace {

void Form_Load(UpdatesForm& form, Services& services) {
    ApplySkin(services, form.skin);
    const bool isProxyOn = GetConfig(services, settings::proxyOn) == "1";
    form.OPproxyON = {!isProxyOn, isProxyOn};
    form.txtProxyHost = GetConfig(services, settings::proxyHost);
    form.txtProxyPort = GetConfig(services, settings::proxyPortForUpdates);
    form.txtProxyUser = GetConfig(services, settings::proxyUser);
    form.txtProxyPass = GetConfig(services, settings::proxyPass);
}

void Form_Unload(UpdatesForm& form, Services& services) {
    form.isUnloaded = true;
    SaveConfig(services, settings::proxyOn, form.OPproxyON[1] ? "1" : "0");
    SaveConfig(services, settings::proxyHost, form.txtProxyHost);
    SaveConfig(services, settings::proxyPortForUpdates, form.txtProxyPort);
    SaveConfig(services, settings::proxyUser, form.txtProxyUser);
    SaveConfig(services, settings::proxyPass, form.txtProxyPass);
}

void fetchTo(UpdatesForm& form, Services& services, const std::string& url, const std::string& file) {
    const std::optional<FetchError> error =
        form.OPproxyON[1]
            ? services.fetcher.FetchToFileViaProxy(url, file, form.txtProxyHost, form.txtProxyPort,
                                                   form.txtProxyUser, form.txtProxyPass)
            : services.fetcher.FetchToFile(url, file);
    if (!error) return;
    form.txtStatus += error->message + " (" + std::to_string(error->code) + ")" + std::string(lineEnd);
}

std::string kilobytesText(const std::string& file, const Services& services) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    if (error) throw FileError(file, error.message());
    return formatNumber(static_cast<double>(bytes) / 1024.0, "0.0", services.format.decimalMark);
}

}  // namespace vantrace
