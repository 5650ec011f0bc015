// The window `WorldView`: its coming and going, its two clocks, and where things stand in it.
#pragma once

namespace vantrace {

struct WorldMap;
struct WorldViewForm;

/// Reads the settings, the map's picture and the sprites, chooses the first favourite, and starts the clocks.
/// A window that is loaded while another view is wanted stays idle.
void Form_Load(WorldMap& world);
void Form_Activate(WorldMap& world);
/// The window's inner size has changed to that of the form; nothing happens while it is minimised.
void Form_Resize(WorldMap& world);
/// Empties track and footprint, and shows `Main`.
void Form_Unload(WorldMap& world);

/// The frame clock: places, a frame, and what else is due. Unloads the window when it isn't wanted any more.
void Timer1_Timer(WorldMap& world);
/// The slow clock: coming passes once a minute, track, sun and moon once in seven.
void Timer2_Timer(WorldMap& world);

/// Where the pane and the map stand, by the window's inner size and whether the pane is open.
void RedrawinfoPane(WorldMap& world);
/// Opens or closes the pane, and paints a frame.
void BUTexpand_Click(WorldMap& world);

/// Gives `Final` the size that the form tells, and paints it.
void paintFrame(WorldMap& world);

}  // namespace vantrace
