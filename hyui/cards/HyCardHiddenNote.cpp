// The hidden note of the card views: typing a certain word as a card's description
// opens a short thank-you note. The word is not in the binary as text:
// BuildKey unscrambles kScrambledKey into a local copy only for the
// comparison, and the copy is wiped straight after.
#include "HyCardView.h"

#include <cstring>
#include <vector>

namespace {

constexpr unsigned char kScrambledKey[9] = { 206, 39, 8, 110, 67, 83, 191, 167, 77 };

void BuildKey(char (&key)[9])
{
    for (int i = 0; i < 9; ++i)
        key[i] = (char)(((kScrambledKey[i] ^ 0xA5) - 29 * i) & 0xFF);
}

// A dialog template built in memory: caption, one line of text, an OK button.
class TemplateWriter
{
public:
    void Word(WORD w) { m_bytes.insert(m_bytes.end(), (const BYTE*)&w, (const BYTE*)&w + 2); }
    void Dword(DWORD d) { m_bytes.insert(m_bytes.end(), (const BYTE*)&d, (const BYTE*)&d + 4); }
    void Text(const wchar_t* s)
    {
        do
            Word((WORD)*s);
        while (*s++ != 0);
    }
    void Align() { m_bytes.resize((m_bytes.size() + 3) & ~size_t(3)); }
    void Item(DWORD style, short x, short y, short cx, short cy, WORD id, WORD atom, const wchar_t* text)
    {
        Align();
        Dword(style | WS_CHILD | WS_VISIBLE);
        Dword(0);
        for (short v : { x, y, cx, cy })
            Word((WORD)v);
        Word(id);
        Word(0xFFFF);
        Word(atom);
        Text(text);
        Word(0);   // no creation data
    }
    const BYTE* Data() const { return m_bytes.data(); }

private:
    std::vector<BYTE> m_bytes;
};

INT_PTR CALLBACK NoteProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        ::EndDialog(hwnd, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

void ShowNote()
{
    TemplateWriter t;
    t.Dword(DS_MODALFRAME | DS_CENTER | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    t.Dword(0);
    t.Word(2);   // items
    for (short v : { 0, 0, 180, 62 })
        t.Word((WORD)v);
    t.Word(0);   // no menu
    t.Word(0);   // the standard dialog class
    t.Text(L"HyUI card views");
    t.Word(8);
    t.Text(L"MS Shell Dlg");
    t.Item(SS_CENTER, 8, 10, 164, 20, 0xFFFF, 0x0082, L"Cards drawn by the HyUI team. Thank you for looking this closely.");
    t.Item(BS_DEFPUSHBUTTON | WS_TABSTOP, 65, 38, 50, 14, IDOK, 0x0080, L"OK");
    ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), (LPCDLGTEMPLATEW)t.Data(), ::GetActiveWindow(), &NoteProc, 0);
}

}  // namespace

extern "C" int HyIsSpecialDescription(const char* pszDescription)
{
    if (pszDescription == nullptr || *pszDescription == '\0')
        return 0;
    char key[9];
    BuildKey(key);
    const bool match = std::strcmp(pszDescription, key) == 0;
    ::SecureZeroMemory(key, sizeof(key));
    if (!match)
        return 0;
    ShowNote();
    return 1;
}
