// The gallery's own sample pictures, drawn with GDI and handed to CxImage as
// BMP files in memory: nothing is read from disk or fetched.
#pragma once
#include <afxwin.h>
#include <memory>

class CxImage;

enum class GalleryPicture
{
    Landscape,   // wide, 24 bits: sky, sun, hills
    Portrait,    // tall, 24 bits: a head and shoulders
    Small,       // 32 x 24, 24 bits: a badge
    Palette,     // 8 bits with a 16-colour palette: four tiles and a ring
};

// A new picture (valid unless memory ran out).
std::unique_ptr<CxImage> GalleryMakePicture(GalleryPicture which);
