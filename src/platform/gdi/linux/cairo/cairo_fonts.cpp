// Font files opened for drawing, and texts on their way to cairo.
#include "platform/gdi/linux/cairo/cairo_fonts.h"

#include "platform/gdi/linux/cairo/glyph_run.h"
#include "platform/gdi/linux/fonts/font_reader.h"

#include <cairo-ft.h>

#include <array>
#include <cmath>
#include <unordered_map>

namespace
{

// Faces are as many as files in use, and live for ever: cairo keeps scaled fonts of its own that
// point at them. They are cairo's alone, since it changes the size of a face as it draws.
struct CDrawnFace
{
    FT_Face m_pFace = nullptr;         // null: the file cannot be read
    CFontFacePtr m_apFaces[HINTINGS];  // by CHinting; made when first needed
};

// A face whose font could not be made is spoilt for ever; then a new one takes its place.
cairo_font_face_t* DrawnFace(const CFontFace& face, CHinting hinting)
{
    static auto* const s_pFaces = new std::unordered_map<const CFontFace*, CDrawnFace>;
    const auto [it, bNew] = s_pFaces->try_emplace(&face);
    CDrawnFace& drawn = it->second;
    if (bNew)
        drawn.m_pFace = OpenFontFile(face);
    if (!drawn.m_pFace)
        return nullptr;
    CFontFacePtr& pFace = drawn.m_apFaces[static_cast<int>(hinting)];
    if (!pFace || cairo_font_face_status(pFace.get()) != CAIRO_STATUS_SUCCESS)
    {
        pFace.reset(cairo_ft_font_face_create_for_ft_face(
            drawn.m_pFace, hinting == CHinting::outlines ? FT_LOAD_NO_HINTING : FT_LOAD_DEFAULT));
        if (face.m_bFakeBold)
            cairo_ft_font_face_set_synthesize(pFace.get(), CAIRO_FT_SYNTHESIZE_BOLD);
    }
    return pFace.get();
}

// What FreeType can scale, and a bitmap can show. Asking for more spoils the face.
bool IsDrawable(const cairo_matrix_t& size, const cairo_matrix_t& matrix)
{
    constexpr double fMaxSize = 32767;  // pixels an em, in 16.16 numbers
    constexpr double fMinArea = 1e-4;   // of an em square: a matrix that can still be inverted
    cairo_matrix_t scale;
    cairo_matrix_multiply(&scale, &size, &matrix);
    return std::hypot(scale.xx, scale.yx) <= fMaxSize &&
           std::hypot(scale.xy, scale.yy) <= fMaxSize &&
           std::abs(scale.xx * scale.yy - scale.xy * scale.yx) >= fMinArea;
}

// Full hinting comes nearest to what GDI draws. Metrics are never cairo's: pens stand where the
// advances of the layout say.
const cairo_font_options_t* FontOptions(CHinting hinting)
{
    const auto make = [](cairo_antialias_t antialias, cairo_hint_style_t style)
    {
        cairo_font_options_t* pOptions = cairo_font_options_create();
        cairo_font_options_set_antialias(pOptions, antialias);
        cairo_font_options_set_hint_metrics(pOptions, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_hint_style(pOptions, style);
        return pOptions;
    };
    static const cairo_font_options_t* const s_apOptions[] = {
        make(CAIRO_ANTIALIAS_GRAY, CAIRO_HINT_STYLE_FULL),
        make(CAIRO_ANTIALIAS_NONE, CAIRO_HINT_STYLE_FULL),
        make(CAIRO_ANTIALIAS_GRAY, CAIRO_HINT_STYLE_NONE),
    };
    return s_apOptions[static_cast<int>(hinting)];
}

}  // namespace

CScaledFontPtr MakeScaledFont(const CRealizedFont& font, CHinting hinting,
                              const cairo_matrix_t& matrix)
{
    const double fHeight = font.Ppem();
    const double fWidth = fHeight * font.WidthRatio();
    cairo_matrix_t size;
    cairo_matrix_init(&size, fWidth, 0, font.Face().m_bFakeItalic ? -FAKE_ITALIC_SHEAR * fWidth : 0,
                      fHeight, 0, 0);
    cairo_font_face_t* pFace = IsDrawable(size, matrix) ? DrawnFace(font.Face(), hinting) : nullptr;
    if (!pFace)
        return nullptr;
    CScaledFontPtr pScaled(cairo_scaled_font_create(pFace, &size, &matrix, FontOptions(hinting)));
    if (cairo_scaled_font_status(pScaled.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    return pScaled;
}

namespace
{

// Glyphs on their way to cairo: a stretch at a time, so that no text takes memory.
class CGlyphBatch
{
public:
    CGlyphBatch(cairo_t* pCairo, bool bAsOutlines) : m_pCairo(pCairo), m_bAsOutlines(bAsOutlines) {}

    void Add(unsigned long nGlyph, double x, double y)
    {
        m_aGlyphs[m_nCount++] = { nGlyph, x, y };
        if (m_nCount == m_aGlyphs.size())
            Flush();
    }
    void Flush()
    {
        const int nCount = static_cast<int>(std::exchange(m_nCount, 0));
        if (nCount == 0)
            return;
        if (!m_bAsOutlines)
            return cairo_show_glyphs(m_pCairo, m_aGlyphs.data(), nCount);
        cairo_glyph_path(m_pCairo, m_aGlyphs.data(), nCount);
        cairo_fill(m_pCairo);
    }

private:
    cairo_t* m_pCairo;  // not owned
    bool m_bAsOutlines;
    std::size_t m_nCount = 0;
    std::array<cairo_glyph_t, 64> m_aGlyphs;
};

}  // namespace

void DrawGlyphs(cairo_t* pCairo, const CDeviceContext& dc, const CGlyphRun& run,
                const CPenBounds& bounds, bool bAsOutlines)
{
    CGlyphBatch batch(pCairo, bAsOutlines);
    WalkGlyphs(dc, run, bounds,
               [&](BYTE byte, std::int64_t x)
               { batch.Add(run.m_font.Glyph(byte), static_cast<double>(x), run.m_origin.y); });
    batch.Flush();
}
