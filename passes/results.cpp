#include "passes/results.h"

#include <filesystem>
#include <string>

#include "catalogue/data_files.h"
#include "core/error_label.h"
#include "core/print_document.h"
#include "core/program_state.h"
#include "core/services.h"
#include "passes/pass_prediction_form.h"
#include "passes/report.h"
#include "platform/file_replacement.h"

namespace vantrace {

namespace {

constexpr const char* usualFile = "Vantrace.txt";
constexpr const char* printTitle = "Print Vantrace Pass Predictions";

}  // namespace

void BUTclearResults_Click(PassPredictionForm& form) {
    form.Printed.clear();
    form.LISTpasses.clear();
}

void BUTsaveresults_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    const std::filesystem::path file =
        services.dialogs.fileToSave({"Save Predicted results to file", usualFile, "Text files", "*.txt"})
            .value_or(usualFile);
    composeReport(form.Printed, form.LISTpasses, ReportUse::saved, state);
    replaceFile(file, form.Printed.plainText() + std::string(lineEnd));
    services.dialogs.message("Predictions saved as " + file.string());
}

void BUTprint_Click(PassPredictionForm& form, ProgramState& state, Services& services) {
    // Quiet steps only: nothing is logged under a name.
    ErrorLabel label(services, {});
    label.quietStep([&] { composeReport(form.Printed, form.LISTpasses, ReportUse::printed, state); });
    label.quietStep([&] {
        services.printer.print(printTitle, printDocument("Vantrace Pass Predictions", form.Printed));
    });
}

}  // namespace vantrace
