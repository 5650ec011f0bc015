// What the tests of the predictions share: a program folder with groups, and the form of the window.
#pragma once

#include "passes/pass_prediction_form.h"
#include "tests/orbit/program/program_test.h"
#include "tests/support/fake_window.h"

namespace vantrace {

class PassesTest : public ProgramTest {
  protected:
    PassesTest() {
        fakes.folder.write("stations.txt", stationElements);
        fakes.folder.write("geo.txt", geostationaryElements);
        state.MainTag = "passprediction";
        engine().EngineSetKepPath(state.AppPath);
        state.Groups[1] = {"Space Stations", "example.org/elements/stations.txt", "0"};
        state.Groups[2] = {"Geostationary", "geo.txt", "0"};
        state.Groups[3] = {"Missing", "example.org/missing.txt", "0"};
        state.GroupCount = 3;
        addFavourite("ISS (ZARYA)");
    }
    ~PassesTest() override { fakes.windows.close(); }

    OrbitEngine& engine() { return *state.OrbitEngine; }
    /// As while the window is open: `Satcalc` looks for no next pass.
    void openWindow() { showFake("PassPrediction"); }
    void showFake(const std::string& name) {
        fakes.fakeWindow(name);
        fakes.windows.show(name);
    }
    const std::vector<ResultRow>& rows() const { return form.LISTpasses.rows(); }
    /// Takes the rows out of the list.
    std::vector<ResultRow> takenRows() {
        std::vector<ResultRow> taken = rows();
        form.LISTpasses.clear();
        return taken;
    }
    const Texts& messages() const { return fakes.dialogs.messages; }
    std::string jobs() const { return fakes.folder.read("pass.dat"); }

    PassPredictionForm form;
};

/// A row for tests that look at texts only.
inline ResultRow rowOfTexts(const std::array<std::string, resultColumns>& texts) {
    ResultRow row;
    row.texts = texts;
    return row;
}

}  // namespace vantrace
