#pragma once

// Vectors of 32-bit floats. All operations act member by member. Default construction gives zeros.

struct VEC2 {
    float x = 0.0f;
    float y = 0.0f;

    VEC2() = default;
    VEC2(float x_, float y_) : x(x_), y(y_) {}
};
inline VEC2 operator-(const VEC2& a, const VEC2& b) { return {a.x - b.x, a.y - b.y}; }

/// Also a colour without alpha.
struct VEC3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    VEC3() = default;
    VEC3(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}
    /// Drops z.
    operator VEC2() const { return {x, y}; }
};

/// Colours are red, green, blue, alpha in this order, each 0 to 1.
struct VEC4 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 0.0f;

    VEC4() = default;
    VEC4(float x_, float y_, float z_, float w_) : x(x_), y(y_), z(z_), w(w_) {}
    /// Drops w.
    operator VEC3() const { return {x, y, z}; }

    VEC4& operator+=(const VEC4& b) {
        *this = {x + b.x, y + b.y, z + b.z, w + b.w};
        return *this;
    }
    VEC4& operator-=(const VEC4& b) {
        *this = {x - b.x, y - b.y, z - b.z, w - b.w};
        return *this;
    }
};
inline VEC4 operator-(const VEC4& a, const VEC4& b) { return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w}; }
inline bool operator==(const VEC4& a, const VEC4& b) { return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w; }

/// A rotation. The module hands it on and reads nothing of it.
struct QUAT {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 1.0f;
};
