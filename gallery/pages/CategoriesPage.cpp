// The "Categories" page: the colour category menu (nested, checked and
// disabled items; drawn in place and as a real popup), the category combo
// with and without colours, the sixteen swatches, the swatch list, and both
// category dialogs over the gallery's own components in the data folder: the
// memos (one category is a handheld subscription) and the calendar's events.
// A table shows the memo records per category, live and deleted, with the
// undo entries of the last delete; it is read again after every dialog and on
// "Reload", so a second gallery on the same data folder sees the changes.
#include <algorithm>
#include <memory>
#include "GalleryData.h"
#include "GalleryPage.h"
#include "GalleryRender.h"
#include "GalleryStyle.h"
#include "HyCatMgmtDlg.h"
#include "HyCatDlgRes.h"
#include "HyColorCatCombo.h"
#include "HyColorCatMenu.h"
#include "HyColorCatMgmtDlg.h"
#include "HyColorSwatch.h"
#include "HyUIRes.h"
#include "HySwatchListBox.h"
#include <HyBaseTable.h>
#include <HyCategoryMgr.h>
#include <HyComponentDoc.h>
#include <HyTheme.h>

namespace {

constexpr UINT kMenuButtonId = 3701, kMemoDialogId = 3702, kEventDialogId = 3703, kDeleteMemoId = 3704,
               kUndoId = 3705, kReloadId = 3706, kComboId = 3710, kSwatchId = 3720, kListId = 3740, kLogId = 3750,
               kViewId = 3751;
constexpr int kTop = 96, kHeading = 40, kWidth = 760, kButtonWidth = 180, kButtonHeight = 28, kLogLines = 5;
constexpr int kMenuWidth = 190, kComboWidth = 180, kListWidth = 180, kListHeight = 150, kTableRow = 20;
const char* const kUser = "Rosalind Abbott";

}  // namespace

class CCategoriesPage : public CGalleryPage
{
public:
    CCategoriesPage() : m_colourCombo(1), m_plainCombo(0) {}
    ~CCategoriesPage() override
    {
        for (HBITMAP b : m_previews)
            if (b != nullptr) ::DeleteObject(b);
        m_menu.DestroyMenu();
    }

    CSize GetContentSize(int) override { return CSize(GalleryStyle::kMargin * 2 + kWidth, PreviewTop() + kHeading + PreviewHeight() + 24); }

    void GetExtraImages(std::vector<ExtraImage>& images) override
    {
        static const LPCTSTR kSuffixes[] = { _T("memo-categories"), _T("event-categories") };
        for (size_t i = 0; i < m_previews.size(); ++i)
            if (m_previews[i] != nullptr) images.push_back({ kSuffixes[i], m_previews[i] });
    }

protected:
    void OnCreatePage() override
    {
        using namespace GalleryStyle;
        GalleryOpenCategoryData();
        Reload();
        BuildMenu();
        const struct { CButton* button; UINT id; LPCTSTR text; } buttons[] = {
            { &m_buttons[0], kMenuButtonId, _T("Open the menu...") },
            { &m_buttons[1], kMemoDialogId, _T("Memo categories...") },
            { &m_buttons[2], kEventDialogId, _T("Event categories...") },
            { &m_buttons[3], kDeleteMemoId, _T("Delete a Business memo") },
            { &m_buttons[4], kUndoId, _T("Undo the delete") },
            { &m_buttons[5], kReloadId, _T("Reload") },
        };
        for (const auto& b : buttons)
        {
            b.button->Create(b.text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, CRect(0, 0, kButtonWidth, kButtonHeight), this, b.id);
            b.button->SetFont(BodyFont());
        }
        for (int i = 0; i < 2; ++i)
        {
            CHyColorCatCombo& combo = i == 0 ? m_colourCombo : m_plainCombo;
            combo.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED,
                         CRect(0, 0, kComboWidth, 240), this, kComboId + i);
            combo.SetFont(HYThemeGetFont(HYFONT_STANDARD));
            combo.SetCategoryMgr(&GalleryCategoryData().events);
            combo.Fill(TRUE, TRUE);
            combo.SetCurSel(i == 0 ? 3 : 2);
        }
        for (int k = 0; k < HY_SWATCH_BUTTONS; ++k)
            m_swatches[k].Create(HYThemeSwatchColor(g_hySwatchOrder[k]), WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                                 CRect(0, 0, HY_SWATCH_BUTTON_SIZE, HY_SWATCH_BUTTON_SIZE), this, kSwatchId + k);
        m_swatches[5].Select(TRUE);
        m_list.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LBS_NOTIFY, CRect(0, 0, kListWidth, kListHeight), this, kListId);
        FillList();
        m_view.Create(WS_CHILD, CRect(0, 0, 1, 1), this, kViewId);
        m_view.SetTable(&GalleryCategoryData().memoTable);
        m_view.SetDocument(&m_doc);
        CreateLog(m_log, this, kLogId);
        AppendLog(m_log, _T("Data folder: ") + GalleryCategoryData().folder, kLogLines);
        MakePreviews();
    }

    void Layout(int, int scrollY) override
    {
        using namespace GalleryStyle;
        if (m_log.m_hWnd == nullptr) return;
        const int controls = kTop + kHeading - scrollY;
        const int column2 = kMargin + kMenuWidth + kMargin, column3 = column2 + kComboWidth + kMargin;
        m_buttons[0].SetWindowPos(nullptr, kMargin, controls + MenuHeight() + kGap, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_colourCombo.SetWindowPos(nullptr, column2, controls + LineHeight() + 4, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_plainCombo.SetWindowPos(nullptr, column2, controls + 3 * LineHeight() + 24, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        for (int k = 0; k < HY_SWATCH_BUTTONS; ++k)
            m_swatches[k].SetWindowPos(nullptr, column2 + (k % 8) * HY_SWATCH_BUTTON_PITCH,
                                       controls + 6 * LineHeight() + 20 + (k / 8) * HY_SWATCH_BUTTON_PITCH, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_list.SetWindowPos(nullptr, column3, controls + LineHeight() + 4, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        const int dialogs = DialogsTop() + kHeading - scrollY;
        for (int i = 1; i < 6; ++i)
            m_buttons[i].SetWindowPos(nullptr, kMargin + ((i - 1) % 3) * (kButtonWidth + kGap),
                                      dialogs + ((i - 1) / 3) * (kButtonHeight + kGap), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        m_log.SetWindowPos(nullptr, kMargin, LogTop() - scrollY, kWidth, LogHeight(), SWP_NOZORDER);
    }

    void Paint(CDC& dc, const CRect&) override
    {
        using namespace GalleryStyle;
        DrawPageTitle(dc, _T("Categories"));
        DrawSectionHeading(dc, kMargin, kTop, kWidth, _T("CHyColorCatMenu, CHyColorCatCombo, CHyColorSwatch, CHySwatchListBox"));
        const int column2 = kMargin + kMenuWidth + kMargin, column3 = column2 + kComboWidth + kMargin;
        CFont* old = dc.SelectObject(BodyFont());
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(MutedText());
        const int controls = kTop + kHeading;
        dc.TextOut(column2, controls, _T("With colours"));
        dc.TextOut(column2, controls + 2 * LineHeight() + 20, _T("Without colours"));
        dc.TextOut(column2, controls + 5 * LineHeight() + 16, _T("Swatches (one selected)"));
        dc.TextOut(column3, controls, _T("Swatch list (sorted)"));
        dc.SelectObject(old);
        PaintMenu(dc, CPoint(kMargin, controls));
        DrawSectionHeading(dc, kMargin, DialogsTop(), kWidth, _T("Category dialogs on the gallery's data"));
        PaintTable(dc);
        DrawSectionHeading(dc, kMargin, PreviewTop(), kWidth, _T("The dialogs as they open"));
        CDC memDC;
        memDC.CreateCompatibleDC(&dc);
        int x = kMargin;
        for (HBITMAP b : m_previews)
        {
            BITMAP bm = {};
            if (b == nullptr || ::GetObject(b, sizeof bm, &bm) != sizeof bm) continue;
            CDCSelect sel(memDC, CBitmap::FromHandle(b));
            dc.BitBlt(x, PreviewTop() + kHeading, bm.bmWidth, bm.bmHeight, &memDC, 0, 0, SRCCOPY);
            x += bm.bmWidth + kMargin;
        }
    }

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        if (HIWORD(wParam) != BN_CLICKED) return CGalleryPage::OnCommand(wParam, lParam);
        GalleryCategoryStore& data = GalleryCategoryData();
        switch (LOWORD(wParam))
        {
        case kMenuButtonId:
        {
            CRect r;
            m_buttons[0].GetWindowRect(&r);
            const UINT chosen = m_menu.TrackPopupMenu(TPM_RETURNCMD | TPM_LEFTALIGN, r.left, r.bottom, this);
            CString line;
            CCategory category;
            if (chosen >= 1574 && data.events.FindIndex((WORD)(chosen - 1574), &category) == HYCAT_OK)
                line.Format(_T("Menu: chose \"%s\" (command %u)"), (LPCTSTR)category.GetName(), chosen);
            else
                line = _T("Menu: closed without a choice");
            GalleryStyle::AppendLog(m_log, line, kLogLines);
            return TRUE;
        }
        case kMemoDialogId:
        {
            Reload();
            CHyUICatMgmtDlg dlg(&data.memos, &data.memoTable, _T("Memo"), &m_view, this);
            dlg.SetCurrentUserName(kUser);
            dlg.SetCurrentViewID(HY_VIEW_MEMO);
            LogDialog(_T("Memo categories"), dlg.DoModal(), dlg.GetSelectedCatID(), data.memos);
            break;
        }
        case kEventDialogId:
        {
            Reload();
            CHyUIColorCatMgmtDlg dlg(&data.events, &data.eventTable, _T("Event"), nullptr, this);
            LogDialog(_T("Event categories"), dlg.DoModal(), dlg.GetSelectedCatID(), data.events);
            break;
        }
        case kDeleteMemoId:
            DeleteOneMemo();
            break;
        case kUndoId:
        {
            CString line;
            line.Format(_T("Undo: %d memo(s) back"), m_doc.GetUndoObject()->Undo(&data.memoTable));
            GalleryStyle::AppendLog(m_log, line, kLogLines);
            break;
        }
        case kReloadId:
            Reload();
            break;
        default:
            return CGalleryPage::OnCommand(wParam, lParam);
        }
        RefreshControls();
        return TRUE;
    }

private:
    // A category menu as a host builds it: the event categories, the second
    // one checked, one disabled, and the last three under "More".
    void BuildMenu()
    {
        GalleryCategoryStore& data = GalleryCategoryData();
        m_menu.CreatePopupMenu();
        CMenu more;
        more.CreatePopupMenu();
        CCategory category;
        int n = 0;
        for (int rc = data.events.FindFirst(&category); rc == HYCAT_OK; rc = data.events.FindNext(&category), ++n)
        {
            CMenu& target = n >= 4 ? more : m_menu;
            UINT flags = MF_STRING | (n == 2 ? MF_CHECKED : 0) | (n == 3 ? MF_GRAYED : 0);
            target.AppendMenu(flags, 1574 + category.GetIndex(), category.GetName());
        }
        m_menu.AppendMenu(MF_POPUP, (UINT_PTR)more.Detach(), _T("More"));
        m_menu.ChangeToOwnerDraw(&m_menu);
    }

    int MenuHeight() const { return 20 * (int)m_menu.GetMenuItemCount() + 6; }

    // The converted menu's items drawn by the menu itself, the third one as
    // the mouse would highlight it.
    void PaintMenu(CDC& dc, CPoint at)
    {
        CRect frame(at.x, at.y, at.x + kMenuWidth, at.y + MenuHeight());
        dc.FillSolidRect(frame, ::GetSysColor(COLOR_MENU));
        dc.Draw3dRect(frame, ::GetSysColor(COLOR_3DLIGHT), ::GetSysColor(COLOR_3DSHADOW));
        // Menu items are drawn at x 0 of their own window: draw them into a
        // strip of their own and copy it into place.
        CDC strip;
        strip.CreateCompatibleDC(&dc);
        CBitmap bits;
        bits.CreateCompatibleBitmap(&dc, kMenuWidth - 6, 20);
        CDCSelect sel(strip, &bits);
        if (m_menuFont.GetSafeHandle() == nullptr)
        {
            NONCLIENTMETRICS metrics = { sizeof metrics };
            ::SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
            m_menuFont.CreateFontIndirect(&metrics.lfMenuFont);
        }
        CDCSelect font(strip, &m_menuFont);   // the font the system gives a menu's items
        for (UINT i = 0; i < m_menu.GetMenuItemCount(); ++i)
        {
            MENUITEMINFO info = { sizeof info, MIIM_DATA | MIIM_ID | MIIM_STATE };
            m_menu.GetMenuItemInfo(i, &info, TRUE);
            DRAWITEMSTRUCT dis = { ODT_MENU, 0, info.wID, ODA_DRAWENTIRE, 0, nullptr, strip.GetSafeHdc(),
                                   { 0, 0, kMenuWidth - 6, 20 }, info.dwItemData };
            if (i == 2) dis.itemState |= ODS_SELECTED;
            if (info.fState & MFS_GRAYED) dis.itemState |= ODS_DISABLED;
            m_menu.DrawItem(&dis);
            dc.BitBlt(at.x + 3, at.y + 3 + 20 * (int)i, kMenuWidth - 6, 20, &strip, 0, 0, SRCCOPY);
        }
    }

    // Records per memo category: live, deleted; undo entries.
    void PaintTable(CDC& dc)
    {
        using namespace GalleryStyle;
        GalleryCategoryStore& data = GalleryCategoryData();
        CFont* old = dc.SelectObject(BodyFont());
        int y = TableTop();
        const int columns[] = { kMargin, kMargin + 200, kMargin + 280, kMargin + 360 };
        const LPCTSTR heads[] = { _T("Memo category"), _T("Live"), _T("Deleted"), _T("Undo entries") };
        dc.SetTextColor(MutedText());
        for (int c = 0; c < 4; ++c) dc.TextOut(columns[c], y, heads[c]);
        dc.SetTextColor(Text());
        CCategory category;
        for (int rc = data.memos.FindFirst(&category); rc == HYCAT_OK; rc = data.memos.FindNext(&category))
        {
            y += kTableRow;
            const WORD i = category.GetIndex();
            CString cells[4] = { category.GetName() };
            cells[1].Format(_T("%d"), data.memoTable.CountInCategory(i, FALSE));
            cells[2].Format(_T("%d"), data.memoTable.CountInCategory(i, TRUE));
            cells[3].Format(_T("%d"), m_doc.GetUndoObject()->CountInCategory(i));
            for (int c = 0; c < 4; ++c) dc.TextOut(columns[c], y, cells[c]);
        }
        dc.SelectObject(old);
    }

    void DeleteOneMemo()
    {
        GalleryCategoryStore& data = GalleryCategoryData();
        CCategory business;
        if (data.memos.FindName(_T("Business"), &business) != HYCAT_OK) return;
        CBaseIterator walk(&data.memoTable);
        for (CBaseRecord* r = walk.FindFirst(HYREC_WRITE); r != nullptr; r = walk.FindNext(HYREC_WRITE))
            if (r->GetCategoryId() == business.GetIndex() && !r->IsDeleted())
            {
                r->MarkDeleted();
                m_doc.GetUndoObject()->Add(r->GetId(), business.GetIndex());
                GalleryStyle::AppendLog(m_log, _T("Deleted the memo \"") + r->GetText() + _T("\""), kLogLines);
                break;
            }
    }

    void LogDialog(LPCTSTR name, INT_PTR result, WORD chosen, CCategoryMgr& manager)
    {
        CString line;
        CCategory category;
        if (result == IDOK && chosen != 0xFFFF && manager.FindIndex(chosen, &category) == HYCAT_OK)
            line.Format(_T("%s: OK, chose \"%s\""), name, (LPCTSTR)category.GetName());
        else
            line.Format(_T("%s: %s"), name, result == IDOK ? _T("OK, nothing chosen") : _T("cancelled"));
        GalleryStyle::AppendLog(m_log, line, kLogLines);
    }

    // Reads the data folder again: another gallery may have changed it.
    void Reload() { GalleryCategoryData().Reopen(); }

    void FillList()
    {
        m_list.ResetContent();
        CCategory category;
        GalleryCategoryStore& data = GalleryCategoryData();
        for (int rc = data.events.FindFirst(&category); rc == HYCAT_OK; rc = data.events.FindNext(&category))
            if (category.GetIndex() != 0) m_list.AddItem(category.GetName(), HYThemeSwatchOfCategory(category.GetIndex()));
        m_list.SetCurSel(1);
    }

    void RefreshControls()
    {
        for (CHyColorCatCombo* combo : { &m_colourCombo, &m_plainCombo })
        {
            const int sel = combo->GetCurSel();
            combo->Fill(TRUE, TRUE);
            combo->SetCurSel(sel);
        }
        FillList();
        UpdateScrollRange();   // the table grows and shrinks with the categories
        Invalidate();
    }

    // Both dialogs made hidden from their templates and rendered with their frames.
    void MakePreviews()
    {
        GalleryCategoryStore& data = GalleryCategoryData();
        CHyUICatMgmtDlg memo(&data.memos, &data.memoTable, _T("Memo"), nullptr, this);
        CHyUIColorCatMgmtDlg events(&data.events, &data.eventTable, _T("Event"), nullptr, this);
        CBaseDialog* dialogs[] = { &memo, &events };
        const UINT templates[] = { IDD_HOST_CATEGORY_MANAGE, IDD_COLOR_CATEGORIES };
        for (int i = 0; i < 2; ++i)
        {
            HBITMAP bitmap = nullptr;
            if (dialogs[i]->Create(templates[i], this))
            {
                dialogs[i]->ShowWindow(SW_HIDE);
                bitmap = GalleryRenderHiddenDialog(*dialogs[i]);
                dialogs[i]->DestroyWindow();
            }
            m_previews.push_back(bitmap);
        }
    }

    int ControlsHeight() const { return std::max(MenuHeight() + kButtonHeight + GalleryStyle::kGap, kListHeight + GalleryStyle::LineHeight() + 4); }
    int DialogsTop() const { return kTop + kHeading + ControlsHeight() + GalleryStyle::kMargin; }
    int LogTop() const { return DialogsTop() + kHeading + 2 * kButtonHeight + 2 * GalleryStyle::kGap; }
    int LogHeight() const { return GalleryStyle::LineHeight() * kLogLines + 4; }
    int TableTop() const { return LogTop() + LogHeight() + GalleryStyle::kGap; }
    int PreviewTop() const
    {
        return TableTop() + kTableRow * (GalleryCategoryData().memos.GetCount() + 1) + GalleryStyle::kMargin;
    }
    int PreviewHeight() const
    {
        int h = 0;
        for (HBITMAP b : m_previews)
        {
            BITMAP bm = {};
            if (b != nullptr && ::GetObject(b, sizeof bm, &bm) == sizeof bm) h = std::max(h, (int)bm.bmHeight);
        }
        return h;
    }

    CHyColorCatMenu m_menu;
    CFont m_menuFont;
    CHyColorCatCombo m_colourCombo, m_plainCombo;
    CHyColorSwatch m_swatches[HY_SWATCH_BUTTONS];
    CHySwatchListBox m_list;
    CButton m_buttons[6];
    CListBox m_log;
    CComponentDoc m_doc;
    CTernUIComponentView m_view;
    std::vector<HBITMAP> m_previews;
};

GALLERY_REGISTER_PAGE(CCategoriesPage, _T("Categories"), _T("categories"), 55)
