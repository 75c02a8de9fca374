#include "3d/segment.h"

void Segment::scale(float f) {
    const Point4 mid = getMidPoint();
    const Vector4 reach = Vector4(mid, end) * f / 2;
    start = mid - reach;
    end = mid + reach;
}

void Segment::move(float f) {
    const Vector4 way = Vector4(start, end).normalize() * f;
    start += way;
    end += way;
}

std::ostream& operator<<(std::ostream& out, const Segment& s) {
    return out << s.start << " --> " << s.end;
}
