#pragma once

#include <GL/gl.h>

#include <string>

/// A flip-book: a series of pictures on a square of edge 1 around the origin, facing +z, one
/// display list for each picture. Explosions play it; whoever draws one first turns the square
/// towards the camera and scales it. Copies share the lists, which live until the process ends, and
/// play each on its own.
class AnimatedSprite {
public:
    /// Loads `frames` pictures. `files` names them all: the "*" in it stands for the four digits of
    /// the number, from 0000 on. They take `dur` milliseconds together; with 0, 40 milliseconds
    /// each. Throws Exception when a picture cannot be loaded, without a "*", and below one frame.
    AnimatedSprite(const std::string& files, int frames, int dur);

    /// Plays on by `time_diff` milliseconds. False when the series is over.
    bool updateAnimation(int time_diff);
    /// Draws the present picture with its transparency and without depth; nothing once the series
    /// is over. Leaves lighting off and polygons filled.
    void drawCurrentFrame() const;

    /// The share that has been shown, 0 to 1.
    float getProgress() const;

    int getDuration() const { return duration; }
    float getFrameTime() const { return frame_time; }
    float getFPS() const { return 1 / frame_time; }
    /// The whole series in milliseconds; below 1 it is over at once.
    void setDuration(int d);
    /// The unit of both is that of updateAnimation(): with a rate per second the series has to be
    /// played in seconds.
    void setFrameTime(float t);
    void setFPS(float f);

private:
    void initDisplayList(GLuint dl, const std::string& texture) const;

    GLuint display_lists = 0;
    GLuint current_frame = 0;
    int num_frames;
    float width = 1;
    float height = 1;
    int time_pos = 0;
    int duration;
    float frame_time;
};
