// A frame of the panorama of the sky without its window.
#pragma once

#include "app/pictures/picture_options.h"
#include "app/pictures/still_program.h"
#include "horizon/horizon_form.h"
#include "horizon/horizon_surfaces.h"

namespace vantrace {

class HorizonPicture {
  public:
    /// The program outlives this.
    HorizonPicture(StillProgram& program, const PictureSize& size, bool isCenteredNorth);

    void loadLandscape();
    const Surface& paint();

  private:
    StillProgram& m_program;
    HorizonForm m_form;
    HorizonSurfaces m_surfaces;
};

}  // namespace vantrace
