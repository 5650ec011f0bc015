// What the program asks and tells the user face to face.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// What a file dialog shows besides the files.
struct FileRequest {
    std::string title;
    /// Where it starts: a folder, or a file that is proposed.
    std::filesystem::path start;
    /// What the files are called, and their pattern: "Text files", "*.txt". Without a pattern all are shown.
    std::string kind;
    std::string pattern;
};

/// No operation fails; each waits for the user's answer. A text without a title has none.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// Shows a text, or as much of its start as fits, and waits for OK.
    virtual void message(std::string_view text, std::string_view title = {}) = 0;
    /// Yes or No. Closing the question is No.
    virtual bool question(std::string_view text, std::string_view title = {}) = 0;
    /// A line of text; nothing where the user cancels.
    virtual std::optional<std::string> textInput(std::string_view prompt, std::string_view title,
                                                 std::string_view proposal) = 0;
    /// An existing file to read; nothing where the user cancels.
    virtual std::optional<std::filesystem::path> fileToOpen(const FileRequest& request) = 0;
    /// A file to write, after the user has agreed to lose the old one; nothing where he cancels.
    virtual std::optional<std::filesystem::path> fileToSave(const FileRequest& request) = 0;
    /// An existing folder; nothing where the user cancels.
    virtual std::optional<std::filesystem::path> folder(const FileRequest& request) = 0;
};

/// For programs without windows: a message is a line of a stream, and nobody answers a question.
class StreamDialogs final : public Dialogs {
  public:
    /// The stream outlives this.
    explicit StreamDialogs(std::ostream& stream) : m_stream(stream) {}
    void message(std::string_view text, std::string_view title = {}) override;
    bool question(std::string_view text, std::string_view title = {}) override;
    std::optional<std::string> textInput(std::string_view, std::string_view, std::string_view) override;
    std::optional<std::filesystem::path> fileToOpen(const FileRequest&) override;
    std::optional<std::filesystem::path> fileToSave(const FileRequest&) override;
    std::optional<std::filesystem::path> folder(const FileRequest&) override;

  private:
    std::ostream& m_stream;
};

}  // namespace vantrace
