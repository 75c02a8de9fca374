#pragma once

class AnimatedSprite;
class Point4;

/// What all explosions share: the picture and the bang.

/// An explosion is a flat picture that turns to whoever looks. Both functions draw the present
/// frame of a sprite as a square with edges of length `size` around the world point `pos`, facing
/// the game's current camera. Without one, and with the camera at that very point, nothing is
/// drawn.

/// For a whole object, as the last thing that its drawModel() does: the object's own matrix makes
/// room for the picture's.
void drawObjectExplosion(const AnimatedSprite& sprite, const Point4& pos, float size);

/// For a part, which may hang anywhere below the matrix of its ship; that matrix comes back.
void drawPartExplosion(const AnimatedSprite& sprite, const Point4& pos, float size);

/// Plays the bang of a ship or a part: the larger its radius, the louder.
void soundExplosion(const Point4& pos, float radius);
