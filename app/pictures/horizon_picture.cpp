#include "app/pictures/horizon_picture.h"

#include "core/config.h"
#include "core/files.h"
#include "horizon/paint_screen.h"

namespace vantrace {

HorizonPicture::HorizonPicture(StillProgram& program, const PictureSize& size, bool isCenteredNorth)
    : m_program(program) {
    m_form.CenteredNorth = isCenteredNorth;
    m_surfaces.Final.resize(size.width, size.height);
}

void HorizonPicture::loadLandscape() {
    const int designed = m_surfaces.BackDrop.width();
    vantrace::loadLandscape(m_surfaces, m_program.state(), m_program.services());
    if (m_surfaces.BackDrop.width() != designed) return;
    m_program.complain("the landscape " + m_program.state().AppPath +
                       GetConfig(m_program.services(), settings::horizonFile) +
                       ".jpg can't be loaded; the sky has no land");
}

const Surface& HorizonPicture::paint() {
    loadSprites(m_surfaces, m_program.services(), 1);
    PaintScreen(m_surfaces, m_form, m_program.state(), m_program.services());
    return m_surfaces.Final;
}

}  // namespace vantrace
