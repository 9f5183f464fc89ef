// What the card views draw, probed in rendered pixels, and the GDI and USER
// objects they hold across repaints, windows and drags.
#include "card_fixture.h"
#include "HyTheme.h"

namespace {

using CardPaint = CardViewTest<CHyCardView>;
using PhotoPaint = CardViewTest<CHyPhotoView>;

COLORREF RuleColour()
{
    LOGBRUSH lb{};
    HYThemeGetRuleBrush()->GetLogBrush(&lb);
    return lb.lbColor;
}

// The columns where two renderings differ inside r; {INT_MAX, INT_MIN} when none.
std::pair<int, int> DiffColumns(const hytest::Renderer& a, const hytest::Renderer& b, const RECT& r)
{
    std::pair<int, int> span{ INT_MAX, INT_MIN };
    for (int y = r.top; y < r.bottom; ++y)
        for (int x = r.left; x < r.right; ++x)
            if (a.At(x, y) != b.At(x, y))
                span = { std::min(span.first, x), std::max(span.second, x) };
    return span;
}

}  // namespace

TEST_F(CardPaint, FrameShadowHeadersAndFocusRing)
{
    Create(6);
    view.SelectCard(1, TRUE, TRUE);
    view.SelectCard(0, FALSE, TRUE);   // the focus on card 0
    const CCardRects r0 = view.Rects(0), r1 = view.Rects(1);
    hytest::Renderer focused(view);
    const int midY = (r0.rcCard.top + r0.rcCard.bottom) / 2;
    EXPECT_EQ(focused.At(r0.rcCard.left, midY), RGB(0, 0, 0));
    EXPECT_EQ(focused.At(r0.rcCard.left + 1, midY), RGB(255, 255, 255));
    EXPECT_EQ(focused.At(r0.rcCard.right + 1, midY), HYThemeDarken(HYThemeGetColor(HYTHEME_VIEW)));
    EXPECT_EQ(focused.At(r0.rcCard.left - 1, midY), RGB(0, 0, 0));   // the focus ring
    EXPECT_EQ(focused.At(r1.rcHeader.left + 1, r1.rcHeader.bottom - 2), HYThemeGetColor(HYTHEME_HEADER_SEL));
    // The unselected headers' gradient runs on across a row: the seam between
    // two cards is a small step, not the gradient's whole range.
    const CCardRects r2 = view.Rects(2);
    const COLORREF end0 = focused.At(r0.rcHeader.right - 1, r0.rcHeader.bottom - 2);
    const COLORREF start2 = focused.At(r2.rcHeader.left, r2.rcHeader.bottom - 2);
    const COLORREF first = focused.At(r0.rcHeader.left, r0.rcHeader.bottom - 2);
    EXPECT_LT(std::abs(GetRValue(end0) - GetRValue(start2)), std::abs(GetRValue(first) - GetRValue(start2)) + 1);
    ::SetFocus(parent);
    hytest::Renderer unfocused(view);
    EXPECT_NE(unfocused.At(r0.rcCard.left - 1, midY), RGB(0, 0, 0));
}

TEST_F(CardPaint, HeaderIconsCategoryAndCheckMark)
{
    Create(1, 660, 340, HYCARD_CHECKBOXES);
    const CCardRects r = view.Rects(0);
    view.sample.category = "Cat";
    hytest::Renderer plain(view);
    view.sample.note = true;
    hytest::Renderer note(view);
    view.sample.isPrivate = true;
    hytest::Renderer both(view);
    const auto noteSpan = DiffColumns(plain, note, r.rcHeader);
    const auto lockSpan = DiffColumns(note, both, r.rcHeader);
    ASSERT_LE(noteSpan.first, noteSpan.second);
    EXPECT_LT(lockSpan.second, noteSpan.first);   // right to left: category, note, padlock
    // A category wider than half the header is not drawn at all.
    view.sample.category = std::string(60, 'W');
    hytest::Renderer wide(view);
    view.sample.category.clear();
    hytest::Renderer none(view);
    EXPECT_EQ(wide.Pixels(), none.Pixels());
    // The check box: white inside until ticked.
    CRect inside(r.rcCheck);
    inside.DeflateRect(2, 2);
    EXPECT_TRUE(none.AllPixels(inside, RGB(255, 255, 255)));
    view.CheckCard(0, TRUE, TRUE);
    hytest::Renderer ticked(view);
    EXPECT_GT(inside.Width() * inside.Height() - ticked.Count(inside, RGB(255, 255, 255)), 4);
}

TEST_F(CardPaint, MarkupRuleAmpersandMaskAndEmptyView)
{
    Create(1);
    const CCardRects r = view.Rects(0);
    CRect body(r.rcBody);
    body.DeflateRect(2, 2);
    const COLORREF fill = HYThemeGetColor(HYTHEME_BODY);
    const auto inked = [&](const hytest::Renderer& p) { return body.Width() * body.Height() - p.Count(body, fill); };
    const auto fullRows = [&](const hytest::Renderer& p) {
        int rows = 0;
        for (int y = body.top; y < body.bottom; ++y)
            rows += p.AllPixels(CRect(body.left, y, body.right, y + 1), RuleColour()) ? 1 : 0;
        return rows;
    };
    view.sample.description = "a\n<L>\nb\n";
    EXPECT_EQ(fullRows(hytest::Renderer(view)), 1);
    view.sample.description = "a\n<L>\tb\n";   // not a rule in a tabbed line
    EXPECT_EQ(fullRows(hytest::Renderer(view)), 0);
    view.sample.description = "&\n";   // shown, not taken for a mnemonic prefix
    EXPECT_GT(inked(hytest::Renderer(view)), 4);
    view.sample.description = "&";     // no line feed: not a line
    EXPECT_EQ(inked(hytest::Renderer(view)), 0);
    view.sample.masked = true;
    view.sample.description = "Masked\n";
    view.sample.note = true;
    hytest::Renderer masked(view);
    view.sample = SampleDesc{ "", "", false, true, false, false, "Other" };
    EXPECT_EQ(masked.Pixels(), hytest::Renderer(view).Pixels());   // no text, label or icon
    view.DeleteAllCards(TRUE);
    hytest::Renderer empty(view);
    CClientDC screen(nullptr);
    CFont* old = screen.SelectObject(view.GetLabelFont());
    TEXTMETRIC tm{};
    screen.GetTextMetrics(&tm);
    screen.SelectObject(old);
    const int line = tm.tmHeight;   // two empty lines above the sentence
    EXPECT_TRUE(empty.AllPixels(CRect(0, 0, 660, 2 * line), HYThemeGetColor(HYTHEME_VIEW)));
    EXPECT_FALSE(empty.AllPixels(CRect(0, 0, 660, 340), HYThemeGetColor(HYTHEME_VIEW)));
}

TEST_F(CardPaint, ScrollLineOnlyWithARange)
{
    Create(6);
    CRect client;
    view.GetClientRect(&client);
    const CRect edge(client.right - 1, 0, client.right, client.bottom);
    EXPECT_FALSE(hytest::Renderer(view).AllPixels(edge, RGB(0, 0, 0)));
    view.AddCard(nullptr, TRUE);
    view.GetClientRect(&client);
    EXPECT_TRUE(hytest::Renderer(view).AllPixels(CRect(client.right - 1, 0, client.right, client.bottom),
                                                 RGB(0, 0, 0)));
}

TEST_F(PhotoPaint, PhotoSquareAndNoPhotoCaption)
{
    Create(2, 288, 134);
    view.sample.photo = true;
    const CCardRects r = view.Rects(1);   // the card without the focus mark
    hytest::Renderer photo(view);
    const CRect square(r.rcBody.left + 20, r.rcBody.top + 5, r.rcBody.left + 115, r.rcBody.top + 100);
    EXPECT_TRUE(photo.AllPixels(square, RGB(255, 0, 0)));
    EXPECT_EQ(photo.Count(r.rcBody, RGB(255, 0, 0)), 95 * 95);
    view.sample.photo = false;
    hytest::Renderer caption(view);
    EXPECT_EQ(caption.Count(r.rcBody, RGB(255, 0, 0)), 0);
    // "No Photo" centred: as much caption left of the middle as right of it.
    const COLORREF fill = caption.At(r.rcBody.left + 1, r.rcBody.top + 1);
    int left = INT_MAX, right = INT_MIN, top = INT_MAX, bottom = INT_MIN;
    for (int y = r.rcBody.top; y < r.rcBody.bottom; ++y)
        for (int x = r.rcBody.left; x < r.rcBody.right; ++x)
            if (caption.At(x, y) != fill)
                left = std::min(left, x), right = std::max(right, x), top = std::min(top, y), bottom = std::max(bottom, y);
    EXPECT_NEAR(left - r.rcBody.left, r.rcBody.right - 1 - right, 2);
    EXPECT_NEAR(top - r.rcBody.top, r.rcBody.bottom - 1 - bottom, 4);
}

// Objects held steady over many repaints, windows and drags, both views.
template <class View>
void Churn(CardViewTest<View>& t, RecordingView<View>& view, CWnd* parent)
{
    (void)t;
    for (int i = 0; i < 1000; ++i)
        view.RedrawAll();
    for (int i = 0; i < 100; ++i) {
        hytest::MouseDown(view, 142, 40);
        hytest::MouseMove(view, 120 - i % 7, 40);
        hytest::MouseUp(view, 120 - i % 7, 40);
    }
    view.DestroyWindow();
    for (int i = 0; i < 100; ++i) {
        view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300), parent, 7);
        view.AddCard(nullptr, TRUE);
        view.DestroyWindow();
    }
}

TEST_F(CardPaint, ObjectsSteady)
{
    Create(12, 660, 340, HYCARD_CHECKBOXES);
    view.sample = SampleDesc{ "a\n<L>\nb\tc\nwrapped words<W>\n", "Cat", true, false, true, true };
    view.CheckCard(-1, TRUE, FALSE);
    view.SelectCard(3, TRUE, FALSE);
    Churn(*this, view, CWnd::FromHandle(parent));
}

TEST_F(PhotoPaint, ObjectsSteady)
{
    Create(12, 576, 268, HYCARD_CHECKBOXES);
    view.sample.photo = true;
    Churn(*this, view, CWnd::FromHandle(parent));
}
