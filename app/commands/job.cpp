// A prediction job of pass.dat.
#include "app/command.h"
#include "app/prediction.h"
#include "app/program/arguments.h"
#include "passes/job_file.h"

namespace vantrace {

namespace {

std::string knownJobs(std::string_view text) {
    std::string known;
    for (const std::string& name : jobNames(text))
        known += (known.empty() ? "; there is " : ", ") + inQuotes(name);
    return known;
}

int runJob(const CommandContext& context) {
    Prediction prediction(context);
    const std::string& name = context.line.arguments.front();
    const std::string text = readJobs(prediction.state());
    const Guard guard = prediction.guard();
    const JobToRun job = jobToRun(text, name, prediction.services().format.decimalMark, guard);
    if (!job.isFound) throw UserError("pass.dat holds no job " + inQuotes(name) + knownJobs(text));
    calculateJob(job, prediction.form(), prediction.state(), prediction.services(), guard);
    return prediction.write();
}

}  // namespace

Command jobCommand() {
    CommandSyntax syntax;
    syntax.name = "job";
    syntax.summary = "Runs a prediction job of pass.dat.";
    syntax.details =
        "The passes of all satellites of the job on all its days, from the day given on; see predict for "
        "what "
        "is listed, and in which formats. Whether the job says to save or to print counts for nothing here: "
        "the results go to the "
        "standard output.";
    syntax.arguments = {"NAME", "the name of the job", 1, 1};
    syntax.options = Prediction::options();
    return {syntax, true, runJob, true};
}

}  // namespace vantrace
