#include "3d/animated_sprite.h"

#include "3d/display_lists.h"
#include "3d/list_compilation.h"
#include "3d/material.h"
#include "3d/opengl.h"
#include "main/exception.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr int default_frame_time = 40;  // milliseconds
constexpr std::size_t number_digits = 4;

std::string numbered(int i) {
    const std::string digits = std::to_string(i);
    return std::string(number_digits - std::min(number_digits, digits.size()), '0') + digits;
}

/// The whole part of a time; one too long for an integer becomes the longest there is.
int wholeTime(double time) {
    if (std::isnan(time)) return 0;
    constexpr double longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(time, 0.0, longest));
}

}  // namespace

AnimatedSprite::AnimatedSprite(const std::string& files, int frames, int dur) : num_frames(frames) {
    DisplayLists lists(frames);
    if (lists.getFirst() == 0)
        throw Exception("AnimatedSprite::AnimatedSprite: cannot create display list(s)");
    const std::size_t star = files.find('*');
    if (star == std::string::npos)
        throw Exception("AnimatedSprite::AnimatedSprite: no * in the name of the series (" + files +
                        ")");

    for (int i = 0; i < frames; ++i)
        initDisplayList(lists.getFirst() + i, std::string(files).replace(star, 1, numbered(i)));
    setDuration(dur == 0 ? default_frame_time * frames : dur);
    display_lists = current_frame = lists.release();
}

void AnimatedSprite::initDisplayList(GLuint dl, const std::string& texture) const {
    const Material picture(texture, MTL_TEX_REPLACE, false);
    const float right = width / 2, top = height / 2;

    const ListCompilation list(dl);
    picture.activate(true);
    glDisable(GL_LIGHTING);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);  // also where the sky or a model was drawn as lines
    glDepthMask(GL_FALSE);
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex3f(-right, -top, 0);
    glTexCoord2f(1, 0);
    glVertex3f(right, -top, 0);
    glTexCoord2f(1, 1);
    glVertex3f(right, top, 0);
    glTexCoord2f(0, 1);
    glVertex3f(-right, top, 0);
    glEnd();
    glDepthMask(GL_TRUE);
}

bool AnimatedSprite::updateAnimation(int time_diff) {
    time_pos = static_cast<int>(std::min<long long>(0LL + time_pos + time_diff, INT_MAX));
    const bool timeless = duration < 1;
    const long long frame =
        timeless ? num_frames : static_cast<long long>(time_pos) * num_frames / duration;
    current_frame = display_lists + static_cast<GLuint>(std::clamp(frame, 0LL, 0LL + num_frames));
    return !timeless && time_pos <= duration;
}

void AnimatedSprite::drawCurrentFrame() const {
    if (current_frame >= display_lists + num_frames) return;
    const OpenGLContext* gl = OpenGLContext::getInstance();
    gl->activateBlending();
    glCallList(current_frame);
    gl->deactivateBlending();
}

float AnimatedSprite::getProgress() const {
    return static_cast<float>(current_frame - display_lists) / static_cast<float>(num_frames);
}

void AnimatedSprite::setDuration(int d) {
    duration = d;
    frame_time = static_cast<float>(d) / static_cast<float>(num_frames);
}

void AnimatedSprite::setFrameTime(float t) {
    frame_time = t;
    duration = wholeTime(static_cast<float>(num_frames) * t);
}

void AnimatedSprite::setFPS(float f) {
    frame_time = 1 / f;
    duration = wholeTime(static_cast<float>(num_frames) / f);
}
