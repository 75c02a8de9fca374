#pragma once

#include "3d/camera.h"
#include "3d/vector.h"
#include "game/drawable.h"

#include <memory>

class _3D_Rep;
class _Light;
class Material;

/// The scene behind a menu: a model that turns above a polished table, with its mirror image in the
/// table, under a lamp of its own. The menu owns it. The model is only looked at; when it dies
/// another one must be set before the next frame.
class BackgroundModel : public _Drawable {
public:
    /// Shows `m`, or nothing for null, which it warns of. The camera keeps a distance that fits
    /// this model. Throws Exception when the picture of the table cannot be loaded or no light is
    /// left.
    explicit BackgroundModel(_3D_Rep* m);
    ~BackgroundModel() override;
    BackgroundModel(const BackgroundModel&) = delete;
    BackgroundModel& operator=(const BackgroundModel&) = delete;

    /// Draws the whole scene with its own camera, in the projection that is in force.
    void draw(DRWenum draw_mode) const override;
    /// Turns the model by what belongs to `time_diff` milliseconds.
    void update(int time_diff);

    _3D_Rep* getModel() const { return model; }
    float getHeightOffset() const { return height_offset; }
    int getRotateSpeed() const { return rotate_speed; }
    float getAngle() const { return angle; }
    Vector4 getRotateAxis() const { return rotate_axis; }
    Material* getMaterial() const { return material.get(); }
    _Light* getLight() const { return light; }
    Camera& getCamera() { return camera; }
    bool isTable() const { return table_on; }
    bool isShadows() const { return shadows_on; }
    bool isReflections() const { return reflections_on; }

    /// The camera stays where it is. Null, of which it warns, shows nothing.
    void setModel(_3D_Rep* m);
    /// The height above the table. What is below 0 is reported and ignored.
    void setHeightOffset(float height);
    /// Degrees per second; below 0 turns the other way.
    void setRotateSpeed(int speed) { rotate_speed = speed; }
    /// An axis without length is reported and ignored.
    void setRotateAxis(const Vector4& axis);
    /// Takes ownership of the table's new surface. The one before is the caller's from then on, who
    /// has got it from getMaterial(). Null is reported and ignored.
    void setMaterial(Material* m);
    /// A light of the context's light factory; the one before stays there. Null is reported and
    /// ignored.
    void setLight(_Light* l);
    void setCamera(const Camera& c) { camera = c; }
    /// Without a table there is neither mirror image nor shadow.
    void setTable(bool on) { table_on = on; }
    void setShadows(bool on) { shadows_on = on; }
    void setReflections(bool on) { reflections_on = on; }

    void moveLight(const Vector4& v);

private:
    void turnModel() const;
    void drawMirrorImage(DRWenum draw_mode) const;
    void drawShadow() const;
    void drawModel(DRWenum draw_mode) const;
    void drawTable(DRWenum draw_mode) const;

    _3D_Rep* model;
    float height_offset = 10;
    int rotate_speed = 30;  // degrees per second
    float angle = 0;        // degrees
    Vector4 rotate_axis;
    std::unique_ptr<Material> material;
    _Light* light;  // the context's light factory owns it
    Camera camera;
    bool table_on = true;
    bool shadows_on = false;
    bool reflections_on = true;
};
