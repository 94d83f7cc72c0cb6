#pragma once

class CSimpleGUIShape;

/// A pointer to a shape that becomes null when the shape is destroyed. For code that runs scripts, after which any
/// shape may be gone.
class ShapeWatch {
public:
    explicit ShapeWatch(CSimpleGUIShape* shape = nullptr);
    ~ShapeWatch();
    ShapeWatch(const ShapeWatch&) = delete;
    ShapeWatch& operator=(const ShapeWatch&) = delete;

    ShapeWatch& operator=(CSimpleGUIShape* shape) {
        m_shape = shape;
        return *this;
    }
    CSimpleGUIShape* get() const { return m_shape; }

    /// The shape is about to be destroyed.
    static void forget(const CSimpleGUIShape* shape);

private:
    CSimpleGUIShape* m_shape;
    ShapeWatch* m_next;
    ShapeWatch* m_previous = nullptr;
};
