#include "flares/iridium_flares.h"

#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "catalogue/data_files.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/print_document.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/view_words.h"
#include "flares/flare_file.h"
#include "flares/flare_report.h"
#include "flares/flare_request.h"
#include "flares/flare_table.h"
#include "platform/file_replacement.h"

namespace vantrace {

namespace {

constexpr const char* idleCaption = " (Requires Internet Connection)";
constexpr const char* connectingCaption = " (Requires Internet Connection) - Connecting";
constexpr const char* completeCaption = "Complete ! - Results are saved to memory";
constexpr const char* errorCaption = " (Requires Internet Connection) - Error in Data";
constexpr const char* badPageMessage =
    "There was a problem with the Flare Results, the server is either busy or not online...Also check that "
    "your Latitude and longitude are correct, Here is the first section of the data sent from the server : ";

/// Holds off other retrievals for as long as it lives.
class Retrieval {
  public:
    explicit Retrieval(IridiumFlaresForm& form) : m_form(form) { m_form.isRetrieving = true; }
    ~Retrieval() { m_form.isRetrieving = false; }
    Retrieval(const Retrieval&) = delete;
    Retrieval& operator=(const Retrieval&) = delete;

  private:
    IridiumFlaresForm& m_form;
};

void retrieve(IridiumFlaresForm& form, const ProgramState& state, Services& services) {
    form.Label1 = connectingCaption;
    form.isComplete = false;
    form.LSTflares.clear();
    services.events.yield();
    // Closed meanwhile, or with all windows at the end of the program: nobody waits for the flares.
    if (form.isUnloaded || state.MainTag == mainTag::exit) return;

    const std::string page = dataFile(state, flaresScratchFile).string();
    if (const auto failure = fetchFlares(services, flareUrl(state), page)) {
        // Required: goes on with whatever page there is.
        Sweb1_FetchError(services, failure->message, failure->code);
    }
    form.txtHTML.clear();
    form.txtHTML = readFlarePage(page);
    readFlareTable(form.txtHTML, services.clock, form.LSTflares);
    form.Label1 = completeCaption;
    saveFlares(dataFile(state, flaresFile), form.LSTflares);
    form.isComplete = true;

    std::error_code ignored;
    std::filesystem::remove(page, ignored);
}

}  // namespace

void Form_Load(IridiumFlaresForm& form, const ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::iridiumFormLoad);
    form.Label1 = idleCaption;
    label.step([&] { ApplySkin(services, form.skin); });
    label.step([&] {
        const std::filesystem::path file = dataFile(state, flaresFile);
        if (FileExists(file)) loadFlares(file, form.LSTflares);
    });
}

void Form_Unload(IridiumFlaresForm& form) {
    form.isUnloaded = true;
}

void BUTgetFlares_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services) {
    if (form.isRetrieving) return;
    const Retrieval retrieval(form);
    try {
        retrieve(form, state, services);
    } catch (const std::exception&) {
        form.Label1 = errorCaption;
        // The window stands behind the box.
        services.windows.beforeYield();
        services.dialogs.message(badPageMessage + std::string(lineEnd) + form.txtHTML);
    }
}

void Sweb1_FetchError(Services& services, std::string_view message, std::int16_t code) {
    services.dialogs.message("An error happend when getting the data from Orbisky : " + std::string(message) +
                             " (" + std::to_string(code) + ")");
}

void BUTsave_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::iridiumSaveClick);
    const auto file =
        services.dialogs.fileToSave({"Save Predicted results to file", "Iridium.txt", "Text files", "*.txt"});
    if (!file) return;
    label.step([&] {
        RichText report;
        composeFlareReport(report, form.LSTflares, state);
        replaceFile(*file, report.plainText());
    });
    label.step([&] { services.dialogs.message("Predictions saved as " + file->string()); });
}

void BUTprint_Click(IridiumFlaresForm& form, const ProgramState& state, Services& services) {
    composeFlareReport(form.Printed, form.LSTflares, state);
    services.printer.printOnDefault("Print Iridium Flare Predictions",
                                    printDocument("Vantrace Iridium Flares", form.Printed));
}

void Picture1_Click(const ProgramState& state, Services& services) {
    services.desktop.openAddress(flareService(state));
}

}  // namespace vantrace
