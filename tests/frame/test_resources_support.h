// Reading HyUI's resources straight from the built module files: the
// library itself and the English and German language modules, loaded as
// data only, and a reader of dialog templates.
#pragma once

#include <windows.h>
#include <string>
#include <vector>

namespace restest {

// A module of the build opened as data (no code runs), found relative to
// the folder of the test program.
class DataModule
{
public:
    explicit DataModule(const char* relativePath)
    {
        char exe[MAX_PATH] = "";
        ::GetModuleFileNameA(nullptr, exe, MAX_PATH);
        std::string dir = exe;
        dir.erase(dir.find_last_of("\\/") + 1);
        m_path = dir + relativePath;
        m_module = ::LoadLibraryExA(m_path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    ~DataModule()
    {
        if (m_module)
            ::FreeLibrary(m_module);
    }
    DataModule(const DataModule&) = delete;
    DataModule& operator=(const DataModule&) = delete;

    HMODULE get() const { return m_module; }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
    HMODULE m_module = nullptr;
};

// The three modules every resource test looks at.
struct ModuleSpec
{
    const char* name;        // for messages
    const char* relative;    // path from the test program's folder
    bool german;
};

inline const ModuleSpec kHyUI = { "HyUI.dll", "HyUI.dll", false };
inline const ModuleSpec kLangEn = { "lang/en", "lang\\en\\HyLangUI.dll", false };
inline const ModuleSpec kLangDe = { "lang/de", "lang\\de\\HyLangUI.dll", true };

// A string of the table, read from its block; empty when the id is absent.
inline std::wstring TableString(HMODULE module, UINT id)
{
    HRSRC res = ::FindResourceW(module, MAKEINTRESOURCEW(id / 16 + 1), (LPCWSTR)RT_STRING);
    if (!res)
        return L"";
    const WCHAR* p = static_cast<const WCHAR*>(::LockResource(::LoadResource(module, res)));
    if (!p)
        return L"";
    for (UINT i = 0; i < id % 16; ++i)
        p += 1 + *p;
    return std::wstring(p + 1, *p);
}

// The raw bytes of a resource; empty when it is absent.
inline std::vector<BYTE> RawResource(HMODULE module, LPCWSTR type, UINT id)
{
    HRSRC res = ::FindResourceW(module, MAKEINTRESOURCEW(id), type);
    if (!res)
        return {};
    const BYTE* p = static_cast<const BYTE*>(::LockResource(::LoadResource(module, res)));
    if (!p)
        return {};
    return std::vector<BYTE>(p, p + ::SizeofResource(module, res));
}

// ---- Dialog templates ------------------------------------------------------

struct DialogItem
{
    DWORD style = 0;
    int x = 0, y = 0, cx = 0, cy = 0;
    int id = 0;
    WORD classAtom = 0;          // 0x80 button, 0x81 edit, 0x82 static, 0x83 list box
    std::wstring className;      // when the class is given by name
    std::wstring text;
};

// Control ids compare in 16 bits, as GetDlgCtrlID reports them for a
// classic template.
inline bool SameId(int a, int b)
{
    return (a & 0xFFFF) == (b & 0xFFFF);
}

struct DialogTemplate
{
    bool extended = false;
    DWORD style = 0;
    int x = 0, y = 0, cx = 0, cy = 0;
    std::wstring title;
    int pointSize = 0;
    std::wstring face;
    std::vector<DialogItem> items;

    const DialogItem* Find(int id) const
    {
        for (const DialogItem& item : items)
            if (SameId(item.id, id))
                return &item;
        return nullptr;
    }
};

// Reads DLGTEMPLATE and DLGTEMPLATEEX; false when the bytes end too soon.
class TemplateReader
{
public:
    explicit TemplateReader(const std::vector<BYTE>& bytes) : m_bytes(bytes) {}

    bool Read(DialogTemplate& out)
    {
        m_pos = 0;
        m_ok = true;
        WORD first = Word(), second = Word();
        out.extended = first == 1 && second == 0xFFFF;
        WORD count;
        if (out.extended)
        {
            Dword();                      // help id
            Dword();                      // extended style
            out.style = Dword();
        }
        else
        {
            m_pos = 0;
            out.style = Dword();
            Dword();                      // extended style
        }
        count = Word();
        out.x = Short(); out.y = Short(); out.cx = Short(); out.cy = Short();
        WORD atom;
        std::wstring ignored;
        NameOrOrdinal(ignored, atom);     // menu
        NameOrOrdinal(ignored, atom);     // class
        out.title = String();
        if (out.style & DS_SETFONT)
        {
            out.pointSize = Word();
            if (out.extended)
            {
                Word();                   // weight
                Word();                   // italic, character set
            }
            out.face = String();
        }
        for (WORD i = 0; i < count && m_ok; ++i)
        {
            Align();
            DialogItem item;
            if (out.extended)
            {
                Dword();                  // help id
                Dword();                  // extended style
                item.style = Dword();
            }
            else
            {
                item.style = Dword();
                Dword();                  // extended style
            }
            item.x = Short(); item.y = Short(); item.cx = Short(); item.cy = Short();
            // A classic template keeps 16 bits of the id: -1 reads as 65535.
            item.id = out.extended ? (int)Dword() : (int)Word();
            NameOrOrdinal(item.className, item.classAtom);
            if (!item.classAtom)
                item.classAtom = PredefinedClassAtom(item.className);
            WORD textAtom = 0;
            NameOrOrdinal(item.text, textAtom);
            m_pos += Word();              // creation data
            out.items.push_back(item);
        }
        return m_ok && m_pos <= m_bytes.size();
    }

private:
    WORD Word()
    {
        if (m_pos + 2 > m_bytes.size())
        {
            m_ok = false;
            return 0;
        }
        WORD w = (WORD)(m_bytes[m_pos] | (m_bytes[m_pos + 1] << 8));
        m_pos += 2;
        return w;
    }
    short Short() { return (short)Word(); }
    DWORD Dword()
    {
        DWORD low = Word();
        return low | ((DWORD)Word() << 16);
    }
    std::wstring String()
    {
        std::wstring s;
        for (WORD c = Word(); c && m_ok; c = Word())
            s += (wchar_t)c;
        return s;
    }
    void NameOrOrdinal(std::wstring& name, WORD& atom)
    {
        name.clear();
        atom = 0;
        if (m_pos + 2 <= m_bytes.size() && m_bytes[m_pos] == 0xFF && m_bytes[m_pos + 1] == 0xFF)
        {
            Word();
            atom = Word();
        }
        else
            name = String();
    }
    // The resource compiler may name a predefined class instead of using its atom.
    static WORD PredefinedClassAtom(const std::wstring& name)
    {
        static const wchar_t* const names[] = { L"Button", L"Edit", L"Static", L"ListBox", L"ScrollBar", L"ComboBox" };
        for (WORD i = 0; i < 6; ++i)
            if (!lstrcmpiW(name.c_str(), names[i]))
                return (WORD)(0x80 + i);
        return 0;
    }
    void Align() { m_pos = (m_pos + 3) & ~(size_t)3; }

    const std::vector<BYTE>& m_bytes;
    size_t m_pos = 0;
    bool m_ok = true;
};

inline bool LoadDialogTemplate(HMODULE module, UINT id, DialogTemplate& out)
{
    std::vector<BYTE> bytes = RawResource(module, (LPCWSTR)RT_DIALOG, id);
    return !bytes.empty() && TemplateReader(bytes).Read(out);
}

}  // namespace restest
