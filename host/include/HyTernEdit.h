// CTernEdit: the host's edit control. Adds a character limit that holds for
// typing and pasting alike, and a paste that inserts what fits.
#pragma once

#include <afxwin.h>
#include "HyHostExport.h"

class HYHOST_API CTernEdit : public CEdit
{
    DECLARE_DYNAMIC(CTernEdit)
public:
    CTernEdit();

    // At most nMax characters (bytes of the ANSI text; a double-byte
    // character counts two); 0 or less removes the limit. Also sets the
    // control's own limit, now or when the window is created.
    void SetMaxChars(int nMax);
    int GetMaxChars() const { return m_nMaxChars; }

    // Replaces the selection with as much of lpszText as fits the limit (a
    // single-line edit takes the first line only) without beeping; answers
    // the number of characters inserted.
    int PasteText(LPCTSTR lpszText);

protected:
    // Derived edits run these as "the host edit's handling".
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnPaste(WPARAM wParam, LPARAM lParam);

    // Room left for new text with the selection replaced.
    int RoomLeft() const;

    int m_nMaxChars;
    BOOL m_bSkipTrailByte;   // a refused lead byte's trail byte is refused too

    DECLARE_MESSAGE_MAP()
};
