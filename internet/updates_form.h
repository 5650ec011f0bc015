// The window `frmCONUpdates`: what is fetched from the Internet on request.
#pragma once

#include <array>
#include <string>

#include "core/skin.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// What the window shows and holds.
struct UpdatesForm {
    /// The progress of the jobs, its lines ended by CR LF.
    std::string txtStatus;
    /// Which of the two is chosen: the direct connection, the proxy.
    std::array<bool, 2> OPproxyON{true, false};
    /// The proxy, as typed.
    std::string txtProxyHost;
    std::string txtProxyPort;
    std::string txtProxyUser;
    std::string txtProxyPass;
    /// A job is on the stack; meanwhile no other one starts.
    bool isWorking = false;
    /// The window has gone; a job that is on the stack still leaves as soon as it can.
    bool isUnloaded = false;
    Skin skin;
};

void Form_Load(UpdatesForm& form, Services& services);
/// Saves the proxy's fields, whether they were changed or not.
void Form_Unload(UpdatesForm& form, Services& services);

/// What the jobs share.

/// Holds off other jobs for as long as it lives.
class UpdateJob {
  public:
    explicit UpdateJob(UpdatesForm& form) : m_form(form) { m_form.isWorking = true; }
    ~UpdateJob() { m_form.isWorking = false; }
    UpdateJob(const UpdateJob&) = delete;
    UpdateJob& operator=(const UpdateJob&) = delete;

  private:
    UpdatesForm& m_form;
};

/// Fetches a file the way that the form says; a failure is told in `txtStatus`.
void fetchTo(UpdatesForm& form, Services& services, const std::string& url, const std::string& file);

/// The size of a file in units of 1024 bytes with one decimal. Throws FileError where there is no file.
std::string kilobytesText(const std::string& file, const Services& services);

}  // namespace vantrace
