#pragma once

class Point4;
class Vector4;

/// What happens to the points and directions of a particle group as time passes: here, nothing.
class Modifier {
public:
    virtual ~Modifier() = default;

    virtual void update(Point4&) {}
    virtual void update(Vector4&) {}
};
