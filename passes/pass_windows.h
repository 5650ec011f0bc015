// What the windows of the predictions ask of each other.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// The upper left corner of a window on the desktop, in its units.
struct WindowCorner {
    int left = 0;
    int top = 0;

    friend bool operator==(const WindowCorner&, const WindowCorner&) = default;
};

/// A job as it is edited. A file that ends too early leaves the rest as it is here.
struct JobToEdit {
    std::string name;
    std::vector<std::string> satellites;
    std::optional<std::string> days;
    bool isSaved = false;
    bool isPrinted = false;
    /// Whether all of it was there.
    bool isWhole = false;
};

class PassPredictionWindow {
  public:
    virtual ~PassPredictionWindow() = default;
    /// Puts a job at the end of `ListPresets`.
    virtual void addPreset(std::string_view name) = 0;
    virtual WindowCorner corner() const = 0;
};

class PassWizardWindow {
  public:
    virtual ~PassWizardWindow() = default;
    /// Puts a job into the window, which is fresh.
    virtual void showJob(const JobToEdit& job) = 0;
};

}  // namespace vantrace
