#include "3d/material.h"

#include "tests/support/picture.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(Material, LoadsColoursAndEnvironmentOfItsMode) {
    window();
    const TempDir dir;
    const std::string file = dir.write("x", picture::ppm(1, 1, "abc"));
    for (auto [mode, environment, green] : {std::tuple{MTL_TEX_DECAL, GL_DECAL, 0},
                                            {MTL_TEX_COMBINED, GL_MODULATE, 0},
                                            {MTL_TEX_REPLACE, GL_REPLACE, 0},
                                            {MTL_TEX_ONLY, GL_MODULATE, 1}}) {
        Material material(file, mode, false);
        material.setDiffuse(new ColorRGB(1, 0, 0));
        for (bool textured : {true, false}) {
            material.activate(textured);
            GLfloat lit[4], unlit[4];
            glGetMaterialfv(GL_FRONT, GL_DIFFUSE, lit);
            glGetFloatv(GL_CURRENT_COLOR, unlit);
            EXPECT_EQ(lit[1], textured ? green : 0) << mode;
            EXPECT_EQ(unlit[1], 0) << "without light the diffuse colour shows, " << mode;
            EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), textured);
        }
        EXPECT_EQ(material.getTexture()->getTexEnvMode(), environment) << mode;
    }
}
