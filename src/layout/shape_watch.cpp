#include "layout/shape_watch.h"

namespace {

// All watches there are: a handful, one for the hovered shape and one for each event in work.
ShapeWatch* s_first = nullptr;

}  // namespace

ShapeWatch::ShapeWatch(CSimpleGUIShape* shape) : m_shape(shape), m_next(s_first) {
    if (m_next) m_next->m_previous = this;
    s_first = this;
}

ShapeWatch::~ShapeWatch() {
    (m_previous ? m_previous->m_next : s_first) = m_next;
    if (m_next) m_next->m_previous = m_previous;
}

void ShapeWatch::forget(const CSimpleGUIShape* shape) {
    for (ShapeWatch* watch = s_first; watch; watch = watch->m_next) {
        if (watch->m_shape == shape) watch->m_shape = nullptr;
    }
}
