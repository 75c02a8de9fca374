#pragma once

#include "3d/bitmap.h"

#include <map>
#include <memory>
#include <string>

/// Loads each mask file once and keeps it for the rest of the run. Made on first use.
class BitmapFactory {
public:
    static BitmapFactory* getInstance();

    BitmapFactory(const BitmapFactory&) = delete;
    BitmapFactory& operator=(const BitmapFactory&) = delete;

    /// The mask of a file, white with alpha 0 until someone colours it. The factory owns it, and
    /// all who ask for the file share it. Throws Exception when it cannot be loaded; the next
    /// request tries again.
    Bitmap* getBitmap(const std::string& name);

private:
    BitmapFactory() = default;
    ~BitmapFactory() = default;

    static BitmapFactory* instance;
    std::map<std::string, std::unique_ptr<Bitmap>> bitmaps;
};
