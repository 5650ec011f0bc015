#include "horizon/horizon_view.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/core_services.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/nearest_favourite.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/spoken_name.h"
#include "core/view_words.h"
#include "horizon/paint_screen.h"
#include "horizon/sky_projection.h"
#include "station/announcements.h"

namespace vantrace {

namespace {

void switchTo(HorizonView& view, std::string_view next, std::string_view window) {
    switchView(view.state, view.services, "Horizon", next, window);
}

/// Both marks turn over whatever they show, so that a click on what holds already puts them wrong.
void centre(HorizonForm& form, bool onNorth) {
    form.CenteredNorth = onNorth;
    form.Mnorth.isChecked = !form.Mnorth.isChecked;
    form.Msouth.isChecked = !form.Msouth.isChecked;
}

void announceAll(HorizonView& view) {
    constexpr int pauseMs = 60000;
    view.form.Timer5sec.isEnabled = false;
    view.services.events.yield();
    AnnouncePositions(view.state, view.services, true);
    view.services.events.yield();
    view.form.Timer5sec = {pauseMs, true};
}

}  // namespace

void Form_Load(HorizonView& view) {
    ErrorLabel label(view.services, labels::horizonFormLoad);
    label.step([&] { ApplySkin(view.services, view.form.skin); });
    readPlace(view.form.place, view.services, label);
    ++view.form.placements;
    loadLandscape(view.surfaces, view.state, view.services);
    view.form.Timer1Sec.isEnabled = true;
}

void Form_Unload(HorizonView& view) {
    view.form.Timer1Sec.isEnabled = false;
    view.form.Timer5sec.isEnabled = false;
    view.services.windows.show("Main");
}

void Timer1Sec_Timer(HorizonView& view) {
    paintPanorama(view);
}

void Timer5sec_Timer(HorizonView& view) {
    constexpr int intervalMs = 9000;
    ErrorLabel label(view.services, labels::horizonTimer5sec);
    view.form.Timer5sec.intervalMs = intervalMs;
    label.step([&] {
        if (view.state.PrimarySatIndex == 0 || !view.form.Mposannounce.isChecked) return;
        const FavouriteRecord& favourite = view.state.Favourites[view.state.PrimarySatIndex];
        Speak(view.services, "Heading " + wholeDegrees(favourite.Azimuth) + ", Elevation " +
                                 wholeDegrees(favourite.Elevation));
    });
}

void Final_MouseDown(HorizonView& view, double X, double Y) {
    ErrorLabel label(view.services, labels::horizonFinalMousedown);
    ProgramState& state = view.state;
    const std::int16_t choice = nearestFavourite(state, label, [&](const FavouriteRecord& favourite) {
        return std::abs(X - AzimuthToX(view.form.CenteredNorth, view.form.innerWidth, favourite.Azimuth)) +
               std::abs(Y - ElevationToY(view.form.innerHeight, favourite.Elevation));
    });
    state.PrimarySatIndex = choice;
    label.step(
        [&] { Speak(view.services, "Selected Satellite " + SpokenName(state.Favourites[choice].Name)); });
}

void runHorizonEntry(std::string_view entry, HorizonView& view) {
    HorizonForm& form = view.form;
    if (entry == "Mnorth") centre(form, true);
    if (entry == "Msouth") centre(form, false);
    if (entry == "Mposannounce") form.Mposannounce.isChecked = !form.Mposannounce.isChecked;
    if (entry == "mnuSpeechAnnouncment") announceAll(view);
    if (entry == "mnuPass") switchTo(view, nextView::pass, "PassPrediction");
    if (entry == "mnuWorld") switchTo(view, nextView::world, "WorldView");
    if (entry == "mnu3Dview") switchTo(view, nextView::threeD, "");
}

void paintPanorama(HorizonView& view) {
    Surface& Final = view.surfaces.Final;
    HorizonForm& form = view.form;
    const int width = std::max(form.innerWidth, 0);
    const int height = std::max(form.innerHeight, 0);
    if (Final.width() != width || Final.height() != height ||
        Final.devicePixelsPerPixel() != form.devicePixelsPerPixel) {
        Final.resize(width, height, form.devicePixelsPerPixel);
    }
    if (form.spritesFor != form.devicePixelsPerPixel) {
        loadSprites(view.surfaces, view.services, form.devicePixelsPerPixel);
        form.spritesFor = form.devicePixelsPerPixel;
    }
    PaintScreen(view.surfaces, form, view.state, view.services);
    ++form.frames;
}

}  // namespace vantrace
