#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <system_error>
#include <utility>

#include "platform/one_line.h"
#include "platform/qt/window_below.h"

namespace vantrace {

namespace {

namespace fs = std::filesystem;

QString shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// In the place of an empty title Qt would show the name of the program.
QString shownTitle(std::string_view title) {
    return title.empty() ? QStringLiteral(" ") : shown(title);
}

QString shownPath(const fs::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

/// A dialog over one of our windows. While it waits, that window may go and take the dialog along: then the
/// user has cancelled.
template <class Dialog>
class Waiting {
  public:
    explicit Waiting(std::string_view title) : m_dialog(new Dialog(windowBelow())) {
        m_dialog->setWindowTitle(shownTitle(title));
    }
    ~Waiting() { delete m_dialog.data(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    Dialog* operator->() { return m_dialog.data(); }
    Dialog& operator*() { return *m_dialog; }
    /// Whether the user ended it with that answer.
    bool isAnswered(int answer) { return m_dialog->exec() == answer && !m_dialog.isNull(); }

  private:
    QPointer<Dialog> m_dialog;
};

/// As much from the start of a text as a box has room for: it can't be scrolled, and a text may be a page of
/// megabytes.
QString fitting(std::string_view text) {
    constexpr std::size_t mostBytes = 8000;
    constexpr qsizetype mostCharacters = 2000;
    constexpr qsizetype mostLines = 30;
    const QString start = shown(text.substr(0, mostBytes));
    const QString lines = start.section(u'\n', 0, mostLines - 1).left(mostCharacters);
    const bool isWhole = text.size() <= mostBytes && lines.size() == start.size();
    return isWhole ? lines : lines + QStringLiteral("\u2026");
}

/// What is shown may come from a file, so that no sign of it is markup.
void setPlainText(QMessageBox& box, std::string_view text) {
    box.setTextFormat(Qt::PlainText);
    box.setText(fitting(text));
}

QStringList nameFilters(const FileRequest& request) {
    const QString all = QStringLiteral("All files (*)");
    if (request.pattern.empty() || request.pattern == "*") return {all};
    const std::string& kind = request.kind.empty() ? request.pattern : request.kind;
    return {shown(kind + " (" + request.pattern + ")"), all};
}

/// "txt" of "*.txt"; empty where the pattern stands for more than one ending.
QString suffixOf(const std::string& pattern) {
    constexpr std::string_view start = "*.";
    if (!pattern.starts_with(start)) return {};
    const std::string suffix = pattern.substr(start.size());
    return suffix.find_first_of(" *?[.") == std::string::npos ? shown(suffix) : QString();
}

void startAt(QFileDialog& dialog, const fs::path& start) {
    if (start.empty()) return;
    std::error_code ignored;
    if (fs::is_directory(start, ignored)) {
        dialog.setDirectory(shownPath(start));
        return;
    }
    if (start.has_parent_path()) dialog.setDirectory(shownPath(start.parent_path()));
    dialog.selectFile(shownPath(start.filename()));
}

std::optional<fs::path> chosenPath(const FileRequest& request, QFileDialog::FileMode mode,
                                   QFileDialog::AcceptMode acceptMode) {
    Waiting<QFileDialog> dialog(request.title);
    dialog->setFileMode(mode);
    dialog->setAcceptMode(acceptMode);
    if (mode == QFileDialog::Directory) {
        dialog->setOption(QFileDialog::ShowDirsOnly);
    } else {
        dialog->setNameFilters(nameFilters(request));
    }
    if (acceptMode == QFileDialog::AcceptSave) {
        // Asked by fileToSave: the dialog's own question would read markup in the file's name.
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        dialog->setDefaultSuffix(suffixOf(request.pattern));
    }
    startAt(*dialog, request.start);
    // The modes have put a title of their own where there was none.
    dialog->setWindowTitle(shownTitle(request.title));
    if (!dialog.isAnswered(QDialog::Accepted)) return std::nullopt;
    const QStringList files = dialog->selectedFiles();
    if (files.isEmpty()) return std::nullopt;
    return fs::path(QFile::encodeName(files.first()).toStdString());
}

}  // namespace

void QtDialogs::message(std::string_view text, std::string_view title) {
    Waiting<QMessageBox> box(title);
    box->setIcon(QMessageBox::Information);
    box->setStandardButtons(QMessageBox::Ok);
    setPlainText(*box, text);
    box.isAnswered(QMessageBox::Ok);
}

bool QtDialogs::question(std::string_view text, std::string_view title) {
    Waiting<QMessageBox> box(title);
    box->setIcon(QMessageBox::Question);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    setPlainText(*box, text);
    return box.isAnswered(QMessageBox::Yes);
}

std::optional<std::string> QtDialogs::textInput(std::string_view prompt, std::string_view title,
                                                std::string_view proposal) {
    Waiting<QInputDialog> dialog(title);
    dialog->setInputMode(QInputDialog::TextInput);
    // The prompt is the label of the field, where "&" would underline a sign; and it is no markup either.
    dialog->setLabelText(shown(prompt).replace(QLatin1Char('&'), QLatin1String("&&")));
    for (QLabel* const label : dialog->findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    // The title tells what is asked for, too. Beside it stand the buttons of the frame.
    constexpr int frameButtons = 120;
    dialog->setMinimumWidth(dialog->fontMetrics().horizontalAdvance(shown(title)) + frameButtons);
    dialog->setTextValue(shown(proposal));
    if (!dialog.isAnswered(QDialog::Accepted)) return std::nullopt;
    return oneLine(dialog->textValue().toStdString());
}

std::optional<std::filesystem::path> QtDialogs::fileToOpen(const FileRequest& request) {
    return chosenPath(request, QFileDialog::ExistingFile, QFileDialog::AcceptOpen);
}

std::optional<std::filesystem::path> QtDialogs::fileToSave(const FileRequest& request) {
    FileRequest again = request;
    for (;;) {
        const auto chosen = chosenPath(again, QFileDialog::AnyFile, QFileDialog::AcceptSave);
        std::error_code ignored;
        if (!chosen || !fs::exists(*chosen, ignored)) return chosen;
        if (question(chosen->filename().string() + " already exists.\nDo you want to replace it?",
                     request.title)) {
            return chosen;
        }
        again.start = *chosen;
    }
}

std::optional<std::filesystem::path> QtDialogs::folder(const FileRequest& request) {
    return chosenPath(request, QFileDialog::Directory, QFileDialog::AcceptOpen);
}

}  // namespace vantrace
