// The "Privacy and images" page: the password prompts run as a host runs
// them. The gallery's main window answers the library's digest request with
// the digest of "secret" for the user "Rosalind Abbott", or with "no password
// set" while the switch is on. The outcome of each prompt is shown, never
// what was typed. Under it, the three dialogs as they open, made from their
// templates without ever appearing on the screen. Last, the gallery's own
// pictures (a wide JPEG, a tall and a small bitmap, a palette bitmap) drawn
// by HYDrawRectImage into square, wide and shallow targets.
#include <algorithm>
#include <memory>
#include "GalleryHost.h"
#include "GalleryPage.h"
#include "GalleryPictures.h"
#include "HyImageHelpers.h"
#include "GalleryRender.h"
#include "GalleryStyle.h"
#include "HyPasswordDlg.h"
#include "HyUIRes.h"

namespace {

constexpr UINT kShowId = 3401, kEditId = 3402, kMaskId = 3403, kNoPasswordId = 3404, kLogId = 3405;
constexpr int kTop = 96, kHeading = 40, kLogLines = 6;
constexpr int kButtonWidth = 220, kButtonHeight = 28, kWidth = 760;
constexpr int kLabelWidth = 190, kColumnWidth = 184;
const SIZE kTargets[] = { { 96, 96 }, { 160, 72 }, { 120, 40 } };
const LPCTSTR kTargetNames[] = { _T("Square, 96 x 96"), _T("Wide, 160 x 72"), _T("Shallow, 120 x 40") };
const LPCTSTR kPictureNames[] = { _T("Wide photo, JPEG 240 x 120"), _T("Tall, 90 x 180"),
                                  _T("Small, 32 x 24 (never enlarged)"), _T("Palette bitmap, 8 bits, 120 x 80") };
const TCHAR kUserName[] = _T("Rosalind Abbott");

struct Prompt
{
    UINT id;
    LPCTSTR caption;    // the button
    LPCTSTR name;       // in the log
};
const Prompt kPrompts[] = {
    { kShowId, _T("Show private records..."), _T("Show private records") },
    { kEditId, _T("Edit a private record..."), _T("Edit a private record") },
    { kMaskId, _T("Act on a selection..."), _T("Selection with private records") },
};

}  // namespace

class CPrivacyPage : public CGalleryPage
{
public:
    ~CPrivacyPage() override
    {
        for (Preview& p : m_previews)
            if (p.bitmap != nullptr)
                ::DeleteObject(p.bitmap);
    }

    CSize GetContentSize(int cx) override
    {
        (void)cx;
        return CSize(GalleryStyle::kMargin * 2 + kWidth, PicturesTop() + kHeading + PicturesHeight() + 40);
    }

    void GetExtraImages(std::vector<ExtraImage>& images) override
    {
        static const LPCTSTR kSuffixes[] = { _T("password"), _T("password-enter"), _T("password-selection") };
        for (size_t i = 0; i < m_previews.size(); ++i)
            if (m_previews[i].bitmap != nullptr)
                images.push_back({ kSuffixes[i], m_previews[i].bitmap });
    }

protected:
    void OnCreatePage() override
    {
        using namespace GalleryStyle;
        for (size_t i = 0; i < 3; ++i)
        {
            m_buttons[i].Create(kPrompts[i].caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                                CRect(0, 0, kButtonWidth, kButtonHeight), this, kPrompts[i].id);
            m_buttons[i].SetFont(BodyFont());
        }
        m_noPassword.Create(_T("No password set (the host answers -1)"),
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX,
                            CRect(0, 0, kButtonWidth * 2, kButtonHeight), this, kNoPasswordId);
        m_noPassword.SetFont(BodyFont());
        m_background.CreateSolidBrush(PageBackground());
        GallerySetNoPassword(false);
        CreateLog(m_log, this, kLogId);
        AppendLog(m_log, _T("No prompt run yet. The password is \"secret\"."), kLogLines);
        MakePreviews();
        MakePictures();
    }

    void Layout(int cx, int scrollY) override
    {
        (void)cx;
        using namespace GalleryStyle;
        if (m_log.m_hWnd == nullptr)
            return;
        const int y = kTop + kHeading - scrollY;
        for (int i = 0; i < 3; ++i)
            m_buttons[i].SetWindowPos(nullptr, kMargin + i * (kButtonWidth + kGap), y, 0, 0,
                                      SWP_NOSIZE | SWP_NOZORDER);
        m_noPassword.SetWindowPos(nullptr, kMargin, y + kButtonHeight + kGap, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_log.SetWindowPos(nullptr, kMargin, LogTop() - scrollY, kWidth, LogHeight(), SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect& rcContent) override
    {
        (void)rcContent;
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Privacy and images"));
        CString heading;
        heading.Format(_T("Password prompts for %s (HyPromptForPassword...)"), kUserName);
        DrawSectionHeading(dc, kMargin, kTop, kWidth, heading);
        DrawSectionHeading(dc, kMargin, PreviewTop(), kWidth, _T("The dialogs as they open"));
        CDC memDC;
        memDC.CreateCompatibleDC(&dc);
        for (size_t i = 0; i < m_previews.size(); ++i)
        {
            const Preview& p = m_previews[i];
            CDCSelect sel(memDC, CBitmap::FromHandle(p.bitmap));
            const CPoint at = PreviewOrigin(i);
            dc.BitBlt(at.x, at.y, p.size.cx, p.size.cy, &memDC, 0, 0, SRCCOPY);
        }
        PaintPictures(dc);
    }

    // The switch sits on the page's own background.
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
    {
        if (pWnd == &m_noPassword && m_background.GetSafeHandle() != nullptr)
        {
            pDC->SetBkColor(GalleryStyle::PageBackground());
            pDC->SetTextColor(GalleryStyle::Text());
            return (HBRUSH)m_background.GetSafeHandle();
        }
        return CGalleryPage::OnCtlColor(pDC, pWnd, nCtlColor);
    }
    DECLARE_MESSAGE_MAP()

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const UINT id = LOWORD(wParam);
        if (id == kNoPasswordId && HIWORD(wParam) == BN_CLICKED)
        {
            GallerySetNoPassword(m_noPassword.GetCheck() == BST_CHECKED);
            return TRUE;
        }
        for (const Prompt& p : kPrompts)
            if (id == p.id && HIWORD(wParam) == BN_CLICKED)
            {
                const int asked = GalleryPasswordRequests();
                const int granted = id == kMaskId ? HyPromptForPasswordWhileMasking(kUserName, this)
                                                  : HyPromptForPassword(kUserName, this, id == kEditId);
                CString line;
                line.Format(_T("%s: access %s (host asked %d time%s)"), p.name, granted ? _T("granted") : _T("refused"),
                            GalleryPasswordRequests() - asked, GalleryPasswordRequests() - asked == 1 ? _T("") : _T("s"));
                GalleryStyle::AppendLog(m_log, line, kLogLines);
                return TRUE;
            }
        return CGalleryPage::OnCommand(wParam, lParam);
    }

private:
    struct Preview
    {
        HBITMAP bitmap = nullptr;
        CSize size;
    };

    // Each dialog made hidden from its template, a person's typing in its
    // password field (shown as bullets), rendered with its frame.
    void MakePreviews()
    {
        for (int i = 0; i < 3; ++i)
        {
            const UINT templateId = i < 2 ? IDD_PASSWORD : IDD_PASSWORD_MASKING;
            std::vector<DWORD> bytes = GalleryHiddenTemplate(templateId);
            if (bytes.empty())
                continue;
            CHyPasswordDlg plain(nullptr, kUserName, i == 1, 0, this);
            CHyMaskPasswordDlg selection(nullptr, kUserName, this);
            CDialog& dialog = i < 2 ? (CDialog&)plain : (CDialog&)selection;
            if (!dialog.CreateIndirect((LPCDLGTEMPLATE)bytes.data(), this))
                continue;
            dialog.SetDlgItemText(IDC_PASSWORD_EDIT, i == 1 ? _T("") : _T("secret"));
            Preview p;
            p.bitmap = GalleryRenderHiddenDialog(dialog);
            dialog.DestroyWindow();
            BITMAP bm = {};
            if (p.bitmap == nullptr || ::GetObject(p.bitmap, sizeof bm, &bm) != sizeof bm)
                continue;
            p.size = CSize(bm.bmWidth, bm.bmHeight);
            m_previews.push_back(p);
        }
    }

    // A wide JPEG (encoded and decoded again), then bitmaps.
    void MakePictures()
    {
        const GalleryPicture kinds[] = { GalleryPicture::Landscape, GalleryPicture::Portrait, GalleryPicture::Small,
                                         GalleryPicture::Palette };
        for (GalleryPicture kind : kinds)
            m_pictures.push_back(GalleryMakePicture(kind));
        BYTE* bytes = nullptr;
        long size = 0;
        if (HyEncodeJPEG(m_pictures[0].get(), bytes, size))
        {
            m_pictures[0] = std::make_unique<CxImage>(bytes, (DWORD)size, (DWORD)CxImage::FORMAT_JPG);
            HyFreeEncodedImage(bytes);
        }
    }

    // How far a picture reaches above and below its target's top: only the
    // target's width limits it, so a tall picture overflows a shallow target.
    int RowHeight(size_t picture) const
    {
        int height = 0;
        for (const SIZE& target : kTargets)
        {
            CRect r(0, 0, (int)m_pictures[picture]->GetWidth(), (int)m_pictures[picture]->GetHeight());
            HYScalePropRect(r, target.cx);
            height = std::max(height, (int)std::max(target.cy, (LONG)r.Height()));
        }
        return height + GalleryStyle::kGap * 2;
    }

    void PaintPictures(CDC& dc)
    {
        using namespace GalleryStyle;
        DrawSectionHeading(dc, kMargin, PicturesTop(), kWidth,
                           _T("HYDrawRectImage: fitted to the target's width and centred (target outlined)"));
        CFont* old = dc.SelectObject(BodyFont());
        dc.SetBkMode(TRANSPARENT);
        int y = PicturesTop() + kHeading;
        dc.SetTextColor(MutedText());
        for (int column = 0; column < 3; ++column)
            dc.TextOut(kMargin + kLabelWidth + column * kColumnWidth, y, kTargetNames[column]);
        y += LineHeight() + kGap;
        CPen dashed(PS_DOT, 1, Rule());
        for (size_t row = 0; row < m_pictures.size(); ++row)
        {
            const int pitch = RowHeight(row), middle = y + pitch / 2;
            dc.SetTextColor(Text());
            CRect label(kMargin, y, kMargin + kLabelWidth - kGap, y + pitch);
            dc.DrawText(kPictureNames[row], -1, &label, DT_WORDBREAK | DT_VCENTER | DT_NOPREFIX);
            for (int column = 0; column < 3; ++column)
            {
                const int x = kMargin + kLabelWidth + column * kColumnWidth;
                const CRect target(x, middle - kTargets[column].cy / 2, x + kTargets[column].cx,
                                   middle - kTargets[column].cy / 2 + kTargets[column].cy);
                HYDrawRectImage(&dc, m_pictures[row].get(), target);
                CDCSelect pen(dc, &dashed);
                CDCSelect brush(dc, CBrush::FromHandle((HBRUSH)::GetStockObject(NULL_BRUSH)));
                dc.Rectangle(target.left - 1, target.top - 1, target.right + 1, target.bottom + 1);
            }
            y += pitch;
        }
        dc.SelectObject(old);
    }

    int PicturesTop() const { return PreviewTop() + kHeading + PreviewHeight() + GalleryStyle::kMargin; }
    int PicturesHeight() const
    {
        int h = GalleryStyle::LineHeight() + GalleryStyle::kGap;
        for (size_t row = 0; row < m_pictures.size(); ++row)
            h += RowHeight(row);
        return h;
    }

    int LogTop() const { return kTop + kHeading + 2 * kButtonHeight + 2 * GalleryStyle::kGap; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }
    int PreviewTop() const { return LogTop() + LogHeight() + GalleryStyle::kMargin; }
    // Two previews a row: the two titles of one dialog, then the other dialog.
    CPoint PreviewOrigin(size_t i) const
    {
        const int x = GalleryStyle::kMargin + (i % 2 == 1 ? m_previews[0].size.cx + GalleryStyle::kMargin : 0);
        const int y = PreviewTop() + kHeading + (i >= 2 ? m_previews[0].size.cy + GalleryStyle::kMargin : 0);
        return CPoint(x, y);
    }
    int PreviewHeight() const
    {
        int h = 0;
        for (size_t i = 0; i < m_previews.size(); ++i)
            h = std::max(h, (int)(PreviewOrigin(i).y + m_previews[i].size.cy - PreviewTop() - kHeading));
        return h;
    }

    CButton m_buttons[3];
    CButton m_noPassword;
    CListBox m_log;
    CBrush m_background;
    std::vector<Preview> m_previews;
    std::vector<std::unique_ptr<CxImage>> m_pictures;
};

BEGIN_MESSAGE_MAP(CPrivacyPage, CGalleryPage)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

GALLERY_REGISTER_PAGE(CPrivacyPage, _T("Privacy and images"), _T("privacy"), 60)
