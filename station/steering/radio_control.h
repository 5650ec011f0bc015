// A radio behind its daemon: the downlink to what it receives on, the uplink to what it transmits on.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "station/steering/daemon_session.h"

namespace vantrace {

/// What the radio's daemon calls its two sides.
struct RadioVfos {
    std::string receive = "VFOA";
    std::string transmit = "VFOB";
};

class RadioControl {
  public:
    /// Which of the two frequencies this radio gets. A transceiver gets both, and is split for it.
    enum class Use { transceiver, receiver, transmitter };

    /// `deadBandHz`: a frequency that is nearer to the last one told isn't told. The session outlives this
    /// and belongs to it.
    RadioControl(DaemonSession& session, Use use, double deadBandHz, Tell tell, RadioVfos vfos = {});

    /// In Hz; 0 is no frequency, and leaves that side of the radio alone.
    void tune(double downlinkHz, double uplinkHz);
    /// Ends the split that was begun, and forgets what was told: the user may turn the knob until the next
    /// time, which begins with the side that receives.
    void release();

  private:
    void askForVfos();
    void forget();
    bool isAnythingToTune() const;
    void goOn();
    void selectReceiver();
    void split();
    std::string splitCommand(char on, const std::string& vfo) const;
    void send(int slot, const std::string& command);
    /// "+F 145800000", or "+F VFOA 145800000" where the daemon wants to know whose.
    std::string frequencyCommand(char letter, const std::string& vfo, double hertz) const;
    void tuneSide(int slot, std::optional<double>& told, double hertz, const std::string& command);
    void tellRefusal(int slot, const std::string& command, int code);

    DaemonSession& m_session;
    Use m_use;
    double m_deadBandHz;
    Tell m_tell;
    RadioVfos m_vfos;
    bool m_isAsked = false;
    bool m_namesVfos = false;
    enum class Receiver { unknown, asked, selected } m_receiver = Receiver::unknown;
    enum class Split { no, asked, on, impossible } m_split = Split::no;
    double m_wantedDownlinkHz = 0.0;
    double m_wantedUplinkHz = 0.0;
    std::optional<double> m_downlinkHz;
    std::optional<double> m_uplinkHz;
    /// The last code of each slot that was told.
    std::map<int, int> m_refusals;
};

}  // namespace vantrace
