#include "passes/job_file.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/file_error.h"
#include "tests/passes/passes_test.h"

namespace vantrace {
namespace {

constexpr std::string_view twoJobs =
    "Weather\r\nNOAA 15;\r\nNOAA 17;\r\n3\r\n1\r\n0\r\n"
    "Radio\r\nAO-7;\r\n1\r\n0\r\n1\r\n";

class JobFileTest : public PassesTest {
  protected:
    JobToEdit weather(const std::string& name) const {
        return {name, {"NOAA 15", "NOAA 17"}, "3", true, false, true};
    }
};

TEST_F(JobFileTest, NamesAreReadUpToABlankLineOrTheEnd) {
    EXPECT_EQ(jobNames(twoJobs), (Texts{"Weather", "Radio"}));
    for (const char* two : {"A\nX; and ; more\n;\nno days\n0\n0\nB", "A\n1\n0\n0\nB\n1\n0"}) {
        EXPECT_EQ(jobNames(two), (Texts{"A", "B"})) << two;
    }
    for (const char* one : {" A \nX;\n1\n0\n0\n   \nB\nX;\n1\n0\n0\n", "A\nX;\n"}) {
        EXPECT_EQ(jobNames(one), Texts{"A"}) << one;
    }
    for (const char* none : {"", "\r\nA\r\n"}) EXPECT_EQ(jobNames(none), Texts{}) << none;
}

TEST_F(JobFileTest, WhatIsAppendedIsReadBack) {
    appendJob(state, weather("  Weather "));
    EXPECT_EQ(jobs(), "Weather\r\nNOAA 15;\r\nNOAA 17;\r\n3\r\n1\r\n0\r\n")
        << "the file is made, the name trimmed";
    JobToEdit radio{"Radio", {"AO-7"}, " many ", false, true, true};
    appendJob(state, radio);
    EXPECT_EQ(jobNames(jobs()), (Texts{"Weather", "Radio"}));
    EXPECT_TRUE(jobs().ends_with("Radio\r\nAO-7;\r\nmany\r\n0\r\n1\r\n"));
    const std::optional<JobToEdit> back = jobToEdit(jobs(), "Radio");
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->satellites, Texts{"AO-7"});
    EXPECT_EQ(back->days, "0") << "the numeric value of what was typed";
    EXPECT_TRUE(!back->isSaved && back->isPrinted);
    fakes.folder.write("pass.dat", "A\nX;\n1\n0\n0");
    appendJob(state, weather("B"));
    EXPECT_EQ(jobNames(jobs()), (Texts{"A", "B"})) << "behind a line without an end";
}

TEST_F(JobFileTest, EditingReadsTheFirstExactNameWithoutItsSemicolons) {
    const std::string text =
        " Weather\nX;\n1\n0\n0\nWeather\nA;b;;\n;C\n 03.50 hours\n1\n1\nWeather\nD;\n9\n0\n0\n";
    const std::optional<JobToEdit> job = jobToEdit(text, "Weather");
    ASSERT_TRUE(job.has_value());
    EXPECT_EQ(job->satellites, (Texts{"Ab", "C"}));
    EXPECT_EQ(job->days, "3.5");
    EXPECT_TRUE(job->isSaved && job->isPrinted && job->isWhole);
    EXPECT_FALSE(jobToEdit(text, "weather").has_value());
    const std::optional<JobToEdit> cut = jobToEdit("A\nX;\n2\n1\n", "A");
    ASSERT_TRUE(cut.has_value());
    EXPECT_TRUE(!cut->isWhole && cut->days == "2" && cut->isSaved);
}

TEST_F(JobFileTest, RemovingTakesOneJobAndTheBlankLinesBehindIt) {
    fakes.folder.write("pass.dat", std::string(twoJobs) + "\r\n  \r\nHidden\r\nX;\r\n1\r\n0\r\n0\r\n");
    EXPECT_EQ(jobNames(jobs()), (Texts{"Weather", "Radio"}));
    removeJob(state, "Weather");
    EXPECT_EQ(jobs(), "Radio\r\nAO-7;\r\n1\r\n0\r\n1\r\nHidden\r\nX;\r\n1\r\n0\r\n0\r\n");
    EXPECT_EQ(jobNames(jobs()), (Texts{"Radio", "Hidden"})) << "the blank line that hid it is gone";
    removeJob(state, "Hidden");
    removeJob(state, "Radio");
    EXPECT_TRUE(fakes.folder.exists("pass.dat"));
    EXPECT_EQ(jobs(), "");
    EXPECT_FALSE(fakes.folder.exists("pass.new"));
}

TEST_F(JobFileTest, AnyLineCanBeTheNameAndWithoutItTheFileStays) {
    fakes.folder.write("pass.dat", twoJobs);
    EXPECT_THROW(removeJob(state, "Weather "), FileError);
    EXPECT_EQ(jobs(), twoJobs);
    EXPECT_FALSE(fakes.folder.exists("pass.new"));
    fakes.folder.write("pass.dat", "A\nX;\n1\n0\n0\n1\nY;\n2\n0\n0\n");
    EXPECT_EQ(jobToEdit(jobs(), "1")->satellites, Texts()) << "the days of the job before";
    removeJob(state, "1");
    EXPECT_EQ(jobs(), "A\r\nX;\r\nY;\r\n2\r\n0\r\n0\r\n");
}

TEST_F(JobFileTest, AnOldScratchFileIsReplacedAndALinkStaysOne) {
    const std::filesystem::path file = fakes.folder.path() / "pass.dat";
    const std::filesystem::path scratch = fakes.folder.path() / "pass.new";
    fakes.folder.write("pass.new", "left by a crash");
    fakes.folder.write("real/jobs", twoJobs);
    std::filesystem::create_symlink("real/jobs", file);
    removeJob(state, "Weather");
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(jobNames(fakes.folder.read("real/jobs")), Texts{"Radio"});
    std::filesystem::remove(file);
    fakes.folder.write("pass.dat", twoJobs);
    fakes.folder.write("foreign", "mine");
    std::filesystem::remove(scratch);
    std::filesystem::create_symlink("foreign", scratch);
    std::filesystem::permissions(file, std::filesystem::perms(0600));
    removeJob(state, "Radio");
    EXPECT_FALSE(fakes.folder.exists("pass.new"));
    EXPECT_EQ(fakes.folder.read("foreign"), "mine") << "what a scratch file points to is none of ours";
    EXPECT_EQ(std::filesystem::symlink_status(file).type(), std::filesystem::file_type::regular);
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0600));
}

TEST_F(JobFileTest, HostileFilesAreRefusedOrReadSafely) {
    EXPECT_THROW(readJobs(state), FileError);
    fakes.folder.write("pass.dat", std::string(jobsFileLimitBytes + 1, 'x'));
    EXPECT_THROW(readJobs(state), FileError);
    EXPECT_THROW(appendJob(state, weather("A")), FileError);
    std::filesystem::remove(fakes.folder.path() / "pass.dat");
    ASSERT_EQ(mkfifo((fakes.folder.path() / "pass.dat").c_str(), 0600), 0);
    EXPECT_THROW(readJobs(state), FileError) << "and it doesn't wait for a writer";
    EXPECT_THROW(removeJob(state, "A"), FileError);
    std::filesystem::remove(fakes.folder.path() / "pass.dat");

    std::string binary;
    for (int i = 0; i < 100000; ++i) binary += static_cast<char>(i * 7919 % 256);
    fakes.folder.write("pass.dat", binary);
    jobNames(readJobs(state));
    appendJob(state, weather("Last"));
    EXPECT_TRUE(jobs().starts_with(binary)) << "nothing of it is lost";

    std::string many;
    for (int i = 0; i < 10000; ++i) many += "Job " + std::to_string(i) + "\r\nX;\r\nY;\r\n1\r\n0\r\n0\r\n";
    fakes.folder.write("pass.dat", many);
    EXPECT_EQ(jobNames(readJobs(state)).size(), 10000U);
    removeJob(state, "Job 9999");
    EXPECT_EQ(jobNames(readJobs(state)).size(), 9999U);
}

/// Adds and removes a job over and over until it is killed.
[[noreturn]] void rewriteForEver(const ProgramState& state, const JobToEdit& job) {
    for (;;) {
        appendJob(state, job);
        removeJob(state, job.name);
    }
}

TEST_F(JobFileTest, WhoeverKillsTheProgramFindsAllOtherJobs) {
    const Texts others{"Weather", "Radio"};
    fakes.folder.write("pass.dat", twoJobs);
    int withTheNewOne = 0;
    for (int round = 0; round < 60; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) rewriteForEver(state, weather("New"));
        usleep(static_cast<useconds_t>(2000 + round * 137));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string text = jobs();
        Texts names = jobNames(text);
        if (names.size() == 3) {
            ++withTheNewOne;
            EXPECT_EQ(names.back(), "New");
            EXPECT_TRUE(jobToEdit(text, "New")->isWhole);
            names.pop_back();
            removeJob(state, "New");
        }
        ASSERT_EQ(names, others) << text;
        EXPECT_EQ(jobs(), twoJobs);
    }
    EXPECT_GT(withTheNewOne, 0);
}

}  // namespace
}  // namespace vantrace
