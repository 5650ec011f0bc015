#include "internet/element_update.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "catalogue/data_files.h"
#include "catalogue/element_files.h"
#include "core/core_services.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "internet/element_server/part_file.h"
#include "internet/updates_form.h"
#include "platform/file_descriptor.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::string_view scheme = "http://";
constexpr std::string_view byHand = "1";

constexpr std::size_t elementLineLength = 69;
constexpr std::string_view standInLine1 =
    "1 27061U 01058G   02011.88736545  .00000026  00000-0  10000-3 0   117";
constexpr std::string_view standInLine2 =
    "2 27061  82.5405 165.3114 0041850 199.5013 160.4475 12.53888826  1840";
static_assert(standInLine1.size() == elementLineLength && standInLine2.size() == elementLineLength);

/// A line, or what stands for it.
std::string_view mended(std::string_view line) {
    if (line.size() == elementLineLength) return line;
    if (line.starts_with("1 ")) return standInLine1;
    if (line.starts_with("2 ")) return standInLine2;
    return line;
}

struct MendedText {
    std::string text;
    bool isCropped = false;
};

/// A lone CR ends a line, too; of several in front of an LF only the last line end counts. Throws
/// std::length_error where short lines made long would make more than a file of elements may hold.
MendedText mendedText(std::string_view content) {
    MendedText result;
    for (LineReader lines(content); !lines.atEnd();) {
        std::string_view rest = lines.next();
        while (rest.ends_with('\r')) rest.remove_suffix(1);
        bool isLast = false;
        while (!isLast) {
            const std::size_t end = std::min(rest.find('\r'), rest.size());
            const std::string_view line = rest.substr(0, end);
            const std::string_view kept = mended(line);
            result.isCropped = result.isCropped || kept != line;
            result.text += kept;
            result.text += lineEnd;
            if (result.text.size() > elementFileLimitBytes) {
                throw std::length_error("mended, it would hold more than " +
                                        std::to_string(elementFileLimitBytes) + " bytes");
            }
            isLast = end == rest.size();
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return result;
}

/// Puts the scratch file in the place of the file that stands behind links, with the mode and the owner that
/// it had.
class Replacement {
  public:
    /// Writes the scratch file. Throws FileError, also where the file may not be written: a rename asks for
    /// the rights of the folder only.
    Replacement(const std::filesystem::path& scratch, const std::string& file, std::string_view text)
        : m_scratch(scratch), m_target(std::filesystem::canonical(file)) {
        struct stat old {};
        if (stat(m_target.c_str(), &old) != 0 || access(m_target.c_str(), W_OK) != 0) {
            throw FileError(m_target, reasonOf(errno));
        }
        replaceFile(m_scratch, text, old.st_mode & mode_t{0777});
        if (chown(m_scratch.c_str(), old.st_uid, old.st_gid) != 0) errno = 0;
    }
    /// Throws where the rename fails, as between two file systems it does.
    void takePlace() const {
        std::filesystem::rename(m_scratch, m_target);
        flushFolderOf(m_target);
    }

  private:
    const std::filesystem::path m_scratch;
    const std::filesystem::path m_target;
};

/// Runs the steps of the job; the user is told of each that fails.
class MessageLabel {
  public:
    MessageLabel(const UpdatesForm& form, Services& services) : m_form(form), m_services(services) {}

    template <class Step>
    void step(Step&& work) {
        try {
            std::forward<Step>(work)();
        } catch (const std::exception& failure) {
            m_services.dialogs.message(
                "Error : " + std::string(failure.what()) +
                " When trying to update the keps, Proxy=" + (m_form.OPproxyON[1] ? "True" : "False"));
        }
    }

  private:
    const UpdatesForm& m_form;
    Services& m_services;
};

void updateGroup(const std::string& url, UpdatesForm& form, ProgramState& state, Services& services,
                 MessageLabel& label) {
    const std::string file = dataFile(state, elementFileName(url)).string();
    // What the group before has come to is seen while this one is fetched. The job yields only behind it.
    label.step([&] { services.windows.beforeYield(); });
    label.step([&] { fetchTo(form, services, url, file); });
    label.step([&] { services.events.yield(); });
    const std::string word = CheckKepFile(state, services, file);
    label.step([&] {
        form.txtStatus +=
            url + "   -  Size : " + kilobytesText(file, services) + " Kb " + word + std::string(lineEnd);
    });
}

}  // namespace

void BUTupdateKeps_Click(UpdatesForm& form, ProgramState& state, Services& services) {
    if (form.isWorking) return;
    const UpdateJob job(form);
    MessageLabel label(form, services);
    form.txtStatus += "Updating Keplerian Elements..." + std::string(lineEnd);
    label.step([&] { services.events.yield(); });
    int updated = 0;
    for (std::size_t i = 1; static_cast<std::ptrdiff_t>(i) <= state.GroupCount; ++i) {
        if (form.isUnloaded) return;
        GroupRecord group;
        label.step([&] { group = state.Groups[i]; });
        if (group.Flag == byHand) continue;
        const std::string url = std::string(scheme) + group.Url;
        if (url.find('/') == std::string::npos) {
            services.dialogs.message("The GROUPS.DAT file is corrupt");
            return;
        }
        updateGroup(url, form, state, services, label);
        ++updated;
    }
    if (form.isUnloaded) return;
    Speak(services, std::to_string(updated) + " Groups Updated.");
    form.txtStatus += "Done." + std::string(lineEnd);
}

std::string CheckKepFile(ProgramState& state, Services& services, const std::string& file) {
    ErrorLabel label(services, labels::updateCONCheckKepFile);
    const std::filesystem::path scratch = dataFile(state, mendedElementsFile);
    MendedText mendedFile;
    std::optional<Replacement> replacement;
    label.step([&] {
        const std::string content = readTextFile(file, elementFileLimitBytes);
        mendedFile = mendedText(content);
        if (mendedFile.text != content) replacement.emplace(scratch, file, mendedFile.text);
    });
    // At every instant the old file is there or the new one; without a new one the old one stays.
    if (!replacement) return mendedFile.isCropped ? "CROPPED" : "OK";
    const bool isInPlace = label.quietStep([&] { replacement->takePlace(); });
    if (!isInPlace) label.quietStep([&] { replaceFile(file, mendedFile.text); });
    label.quietStep([&] { std::filesystem::remove(scratch); });
    return mendedFile.isCropped ? "CROPPED" : "OK";
}

}  // namespace vantrace
