// What the card views draw, probed in rendered pixels, and the GDI and USER
// objects they hold across repaints, windows and drags.
#include "card_fixture.h"
#include "HyTheme.h"

#include <vector>

using CardPaint = CardViewTest<CHyCardView>;
using PhotoPaint = CardViewTest<CHyPhotoView>;
using hytest::Renderer;

TEST_F(CardPaint, FrameShadowHeadersFocusRingAndScrollLine)
{
    Create(6);
    view.SelectCard(1, TRUE, TRUE);
    view.SelectCard(0, FALSE, TRUE);   // the focus on card 0
    const CRect card = view.Rects(0).rcCard, h0 = view.Rects(0).rcHeader, h2 = view.Rects(2).rcHeader;
    Renderer focused(view);
    const int y = card.CenterPoint().y, hy = h0.bottom - 2;
    // The focus ring, the frame, inside it, the shadow, the selected header.
    EXPECT_EQ((std::vector<COLORREF>{ focused.At(card.left - 1, y), focused.At(card.left, y),
                                      focused.At(card.left + 1, y), focused.At(card.right + 1, y),
                                      focused.At(view.Rects(1).rcHeader.left + 1, hy) }),
              (std::vector<COLORREF>{ RGB(0, 0, 0), RGB(0, 0, 0), RGB(255, 255, 255),
                                      HYThemeDarken(HYThemeGetColor(HYTHEME_VIEW)),
                                      HYThemeGetColor(HYTHEME_HEADER_SEL) }));
    // The unselected headers' gradient runs on across a row: the seam between
    // two cards is a small step, not the gradient's whole range.
    const auto red = [&](int x) { return (int)GetRValue(focused.At(x, hy)); };
    EXPECT_LE(std::abs(red(h0.right - 1) - red(h2.left)), std::abs(red(h0.left) - red(h2.left)));
    ::SetFocus(parent);
    EXPECT_NE(Renderer(view).At(card.left - 1, y), RGB(0, 0, 0));
    // The line down the right edge comes with a scroll range.
    const auto edge = [&] {
        Renderer r(view);   // the client area, narrower once the scroll bar shows
        return r.AllPixels(CRect(r.width() - 1, 0, r.width(), r.height()), RGB(0, 0, 0));
    };
    EXPECT_FALSE(edge());
    view.AddCard(nullptr, TRUE);
    EXPECT_TRUE(edge());
}

TEST_F(CardPaint, IconsCategoryCheckMarkMarkupMaskAndEmptyView)
{
    Create(1, 660, 340, HYCARD_CHECKBOXES);
    const CCardRects r = view.Rects(0);
    view.sample.strCategory = "Cat";
    Renderer plain(view);
    view.sample.bNote = TRUE;
    Renderer note(view);
    view.sample.bPrivate = TRUE;
    Renderer both(view);
    const CRect noteInk = note.Ink(r.rcHeader, plain), lockInk = both.Ink(r.rcHeader, note);
    ASSERT_FALSE(noteInk.IsRectEmpty());
    EXPECT_LE(lockInk.right, noteInk.left);   // right to left: category, note, padlock
    // A category wider than half the header is not drawn at all.
    view.sample.strCategory = std::string(60, 'W').c_str();
    Renderer wide(view);
    view.sample.strCategory.Empty();
    Renderer none(view);
    EXPECT_EQ(wide.Pixels(), none.Pixels());
    // The check box: white inside until ticked.
    const CRect inside(r.rcCheck.left + 2, r.rcCheck.top + 2, r.rcCheck.right - 2, r.rcCheck.bottom - 2);
    EXPECT_TRUE(CRect(none.Ink(inside, RGB(255, 255, 255))).IsRectEmpty());
    view.CheckCard(0, TRUE, TRUE);
    EXPECT_FALSE(CRect(Renderer(view).Ink(inside, RGB(255, 255, 255))).IsRectEmpty());
    // The body's markup.
    const CRect body(r.rcBody.left + 2, r.rcBody.top + 2, r.rcBody.right - 2, r.rcBody.bottom - 2);
    const auto ink = [&](const char* description, const Renderer* than = nullptr) {
        view.sample.strDescription = description;
        Renderer r(view);
        return CRect(than ? r.Ink(body, *than) : r.Ink(body, HYThemeGetColor(HYTHEME_BODY)));
    };
    view.sample.strDescription = "a\n";
    const Renderer a(view);
    const CRect rule = ink("a\n<L>\n", &a);   // one pixel high, across the body
    EXPECT_EQ(rule.Height(), 1);
    EXPECT_GT(rule.Width(), body.Width() - 8);
    EXPECT_FALSE(ink("&\n").IsRectEmpty());   // shown, not taken for a mnemonic prefix
    EXPECT_TRUE(ink("&").IsRectEmpty());      // no line feed: not a line
    view.sample = { .strDescription = "Masked\n", .bMasked = TRUE, .bNote = TRUE };
    Renderer masked(view);
    view.sample = { .strLabel = "Other", .bMasked = TRUE };
    EXPECT_EQ(masked.Pixels(), Renderer(view).Pixels());   // no text, label or icon
    view.DeleteAllCards(TRUE);
    const CRect sentence = Renderer(view).Ink(CRect(0, 0, 660, 340), HYThemeGetColor(HYTHEME_VIEW));
    ASSERT_FALSE(sentence.IsRectEmpty());
    EXPECT_GE(sentence.top, 2 * sentence.Height());   // two empty lines above it
}

TEST_F(PhotoPaint, PhotoSquareAndNoPhotoCaption)
{
    Create(2, 288, 134);
    view.sample.bPhoto = TRUE;
    const CRect body = view.Rects(1).rcBody;   // the card without the focus mark
    Renderer photo(view);
    EXPECT_TRUE(photo.AllPixels(CRect(body.left + 20, body.top + 5, body.left + 115, body.top + 100), RGB(255, 0, 0)));
    EXPECT_EQ(photo.Count(body, RGB(255, 0, 0)), 95 * 95);
    view.sample.bPhoto = FALSE;
    Renderer caption(view);
    EXPECT_EQ(caption.Count(body, RGB(255, 0, 0)), 0);
    // "No Photo" centred both ways.
    const CRect text = caption.Ink(body, caption.At(body.left + 1, body.top + 1));
    EXPECT_NEAR(text.left - body.left, body.right - text.right, 2);
    EXPECT_NEAR(text.top - body.top, body.bottom - text.bottom, 4);
}

// Objects held steady over many repaints, resize drags and windows.
template <class View>
void Churn(RecordingView<View>& view, HWND parent)
{
    for (int i = 0; i < 1000; ++i)
        view.RedrawAll();
    view.log.clear();
    const int gap = view.Rects(0).rcCard.right + 2;
    for (int i = 0; i < 100; ++i)   // narrower by 20, then back
        hytest::Drag(view, i % 2 ? gap - 20 : gap, 40, i % 2 ? gap : gap - 20, 40);
    EXPECT_EQ(view.log, "");   // every press was on a gap
    view.DestroyWindow();
    for (int i = 0; i < 100; ++i) {
        view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300), CWnd::FromHandle(parent), 7);
        view.AddCard(nullptr, TRUE);
        view.DestroyWindow();
    }
}

TEST_F(CardPaint, ObjectsSteady)
{
    Create(12, 660, 340, HYCARD_CHECKBOXES);
    view.sample = { .strDescription = "<L>\nb\tc\nw<W>\n", .strCategory = "C", .bPrivate = 1, .bNote = 1, .bPhoto = 1 };
    view.CheckCard(-1, TRUE, FALSE);
    view.SelectCard(3, TRUE, FALSE);
    Churn(view, parent);
}

TEST_F(PhotoPaint, ObjectsSteady)
{
    Create(12, 576, 268, HYCARD_CHECKBOXES);
    view.sample.bPhoto = TRUE;
    Churn(view, parent);
}
