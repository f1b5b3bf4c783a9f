#include "objects/coord_geographic.h"

namespace tessara {

bool CoordGeographic::Set(double longitude, double latitude, double height) {
    longitude_ = longitude;
    latitude_ = latitude;
    height_ = height;
    return true;
}

bool CoordGeographic::Get(double* longitude, double* latitude, double* height) {
    if (longitude == nullptr || latitude == nullptr || height == nullptr) return false;
    *longitude = longitude_;
    *latitude = latitude_;
    *height = height_;
    return true;
}

bool CoordGeographic::SetLatitude(double latitude) {
    latitude_ = latitude;
    return true;
}

bool CoordGeographic::SetLongitude(double longitude) {
    longitude_ = longitude;
    return true;
}

bool CoordGeographic::SetHeight(double height) {
    height_ = height;
    return true;
}

ICoordGeographic* CreateClassCoordGeographic() {
    return NewObject<CoordGeographic>();
}

}  // namespace tessara
