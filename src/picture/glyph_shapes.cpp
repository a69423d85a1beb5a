// Outlines by face and code, and the ink that they leave at a size.
#include "picture/glyph_shapes.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>

namespace
{
constexpr size_t s_nFacesLimit = 256;  // when they are passed all are dropped

using CFaceShapes = std::array<std::unique_ptr<CGlyphShape>, 256>;

class CBounds
{
public:
    explicit CBounds(CGlyphShape& shape) : m_shape(shape) {}

    void Include(double x, double y)
    {
        if (!m_shape.HasInk())
        {
            m_shape.fLeft = m_shape.fRight = x;
            m_shape.fBottom = m_shape.fTop = y;
            return;
        }
        m_shape.fLeft = std::min(m_shape.fLeft, x);
        m_shape.fRight = std::max(m_shape.fRight, x);
        m_shape.fBottom = std::min(m_shape.fBottom, y);
        m_shape.fTop = std::max(m_shape.fTop, y);
    }
    // A parabola is farthest out at its end, or where it turns.
    void IncludeCurve(COutlinePoint from, COutlinePoint control, COutlinePoint to)
    {
        const auto turn = [](double a, double b, double c)
        {
            const double fDown = a - 2 * b + c;
            return fDown == 0 ? 0 : std::clamp((a - b) / fDown, 0.0, 1.0);
        };
        for (const double t : { turn(from.x, control.x, to.x), turn(from.y, control.y, to.y) })
        {
            const auto at = [t](double a, double b, double c)
            {
                return (1 - t) * (1 - t) * a + 2 * t * (1 - t) * b + t * t * c;
            };
            IncludeHalves(at(from.x, control.x, to.x), at(from.y, control.y, to.y));
        }
        Include(to);
    }
    void Include(COutlinePoint point) { IncludeHalves(point.x, point.y); }

private:
    void IncludeHalves(double x, double y) { Include(x / 2, y / 2); }

    CGlyphShape& m_shape;
};

CGlyphShape MakeShape(const CGlyphFont& font, BYTE nCode)
{
    CGlyphShape shape;
    shape.outline = ReadGlyphOutline(font, nCode);
    CBounds bounds(shape);
    const COutlinePoint* p = shape.outline.m_points.data();
    for (const COutlineStep step : shape.outline.m_steps)
    {
        switch (step)
        {
            case COutlineStep::move:
            case COutlineStep::line:
                bounds.Include(*p++);
                break;
            case COutlineStep::curve:
                bounds.IncludeCurve(p[-1], p[0], p[1]);
                p += 2;
                break;
            case COutlineStep::cubic:  // lies within its points
                for (int n = 0; n < 3; ++n)
                    bounds.Include(*p++);
                break;
        }
    }
    return shape;
}
}  // namespace

const CGlyphShape& FindGlyphShape(const CGlyphFont& font, BYTE nCode)
{
    static auto* const s_pFaces = new std::unordered_map<int, CFaceShapes>;
    if (s_pFaces->size() > s_nFacesLimit)
        s_pFaces->clear();
    std::unique_ptr<CGlyphShape>& pShape = (*s_pFaces)[font.m_nFace][nCode];
    if (!pShape)
        pShape = std::make_unique<CGlyphShape>(MakeShape(font, nCode));
    return *pShape;
}
