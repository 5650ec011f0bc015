#pragma once

#include <cmath>

namespace vantrace {

/// A Cartesian vector; unit and frame are told where it is used.
struct Vector3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

constexpr Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vector3 operator*(double k, const Vector3& a) {
    return {k * a.x, k * a.y, k * a.z};
}
constexpr double dot(const Vector3& a, const Vector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vector3 cross(const Vector3& a, const Vector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double norm(const Vector3& a) {
    return std::sqrt(dot(a, a));
}

}  // namespace vantrace
