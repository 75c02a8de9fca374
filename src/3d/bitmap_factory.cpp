#include "3d/bitmap_factory.h"

#include "main/log_factory.h"

#include <iostream>

BitmapFactory* BitmapFactory::instance = nullptr;

BitmapFactory* BitmapFactory::getInstance() {
    if (!instance) instance = new BitmapFactory();
    return instance;
}

Bitmap* BitmapFactory::getBitmap(const std::string& name) {
    std::unique_ptr<Bitmap>& entry = bitmaps[name];
    if (entry) return entry.get();
    entry.reset(new Bitmap(name, ColorRGBA(1, 1, 1, 0), false));
    logLine(std::cout, "!! 3D(4): ", "BitmapFactory::getBitmap: loaded ", *entry);
    return entry.get();
}
