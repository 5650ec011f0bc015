// The window `WorldView`: the world map.
#pragma once

#include <array>
#include <memory>

#include "core/ui/form_window.h"
#include "mapview/world_map.h"

namespace Ui {
class WorldView;
}

namespace vantrace {

class PaneLine;

class WorldView final : public FormWindow {
  public:
    /// All outlive this.
    WorldView(WindowHost& host, MapState& map, ProgramState& state, Services& services);
    ~WorldView() override;
    WorldView(const WorldView&) = delete;
    WorldView& operator=(const WorldView&) = delete;

  private:
    void formLoad() override;
    void formActivate() override;
    void formUnload() override;
    void writeControls() override;
    void readControls() override;
    bool eventFilter(QObject* object, QEvent* event) override;

    void nameLines();
    void connectMenus();
    void connectPane();
    void writeLayout();
    void writePane();
    void writeComingPasses();
    void writeMenus();
    void writeFavourites();

    MapSurfaces m_surfaces;
    WorldViewForm m_form;
    WorldMap m_world;
    std::unique_ptr<Ui::WorldView> m_ui;
    QTimer* m_timer1;
    QTimer* m_timer2;
    /// A frame soon after the window got another size, so that nobody looks at a stretched one for long.
    QTimer* m_refresh;
    std::array<PaneLine*, remoteStatCount> RemoteStat{};

    /// What of the form is on the controls.
    std::array<std::string, remoteStatCount> m_shownLines;
    std::string m_shownNotes;
    MapLayout m_shownLayout;
    bool m_isPaneShownOpen = true;
    unsigned m_shownPlacements = 0;
    unsigned m_shownFrames = 0;
    unsigned m_shownFavourites = 0;
    unsigned m_shownPopUps = 0;
    unsigned m_shownPassChanges = 0;
    std::size_t m_shownPassParts = 0;
};

}  // namespace vantrace
