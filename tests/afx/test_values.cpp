// CString: construction, comparison, searching, editing, formatting, the raw
// buffer protocol and multibyte (DBCS) awareness.
#include <gtest/gtest.h>

#include "afx.h"

#include <mbctype.h>
#include <string.h>
#include <string>
#include <tuple>
#include <vector>

namespace {

// Switches the CRT's multibyte code page for one test and restores it.
class ScopedMbcp
{
public:
    explicit ScopedMbcp(int nCodePage) : m_nSaved(_getmbcp()), m_bOk(_setmbcp(nCodePage) == 0) {}
    ~ScopedMbcp() { _setmbcp(m_nSaved); }
    bool Ok() const { return m_bOk; }

private:
    int m_nSaved;
    bool m_bOk;
};

// Shift-JIS: 0x95 0x5C is one character whose trail byte is '\\';
// 0x83 0x61 is one character whose trail byte is 'a'.
const char kSjisBackslashTrail[] = "\x95\x5C";
const char kSjisLowerATrail[] = "\x83\x61";

using Strings = std::vector<std::string>;
using Ints = std::vector<int>;
std::string S(const CString& s) { return (LPCTSTR)s; }

} // namespace

TEST(ValuesString, ConstructsConcatenatesAndCopiesIndependently)
{
    CString empty;
    EXPECT_TRUE(empty.IsEmpty() && empty.GetLength() == 0);
    const CString a("ab");
    EXPECT_EQ((Strings{"xxx", "abc", "", "wide", "", "abcd", "ab!", "!ab", "abxy", "xyab"}),
              (Strings{S(CString('x', 3)), S(CString("abcdef", 3)), S(CString((LPCTSTR)NULL)), S(CString(L"wide")),
                       S(empty), S(a + CString("cd")), S(a + '!'), S('!' + a), S(a + "xy"), S("xy" + a)}));

    CString s("12");
    s += s;   // appending itself
    s += '3';
    s += (LPCTSTR)s + 2;   // appending from its own buffer
    EXPECT_EQ("12123123", S(s));
    for (int i = 0; i < 1000; i++)
        s += "z";
    EXPECT_EQ(1008, s.GetLength());

    CString one("one");
    CString b(one);
    CString c;
    c = one;
    b.SetAt(0, 'O');
    c.MakeUpper();
    one = one;   // self-assignment keeps the value
    EXPECT_EQ((Strings{"one", "One", "ONE"}), (Strings{S(one), S(b), S(c)}));
}

TEST(ValuesString, ExtractsAndFindsWithinTheString)
{
    CString s("abcdef");
    EXPECT_EQ((Strings{"cde", "cdef", "ef", "", "ab", "abc", "", "abcdef", "def", "abcdef", "123", "key"}),
              (Strings{S(s.Mid(2, 3)), S(s.Mid(2)), S(s.Mid(4, 100)), S(s.Mid(10)), S(s.Mid(-5, 2)), S(s.Left(3)),
                       S(s.Left(-1)), S(s.Left(99)), S(s.Right(3)), S(s.Right(99)),
                       S(CString("123abc").SpanIncluding("0123456789")), S(CString("key=value").SpanExcluding("=:"))}));
    EXPECT_EQ('c', s[2]);
    EXPECT_EQ('f', s.GetAt(5));
    CString t("abcabc");
    EXPECT_EQ((Ints{2, 5, -1, -1, 1, 4, -1, 5, -1, 1, -1}),
              (Ints{t.Find('c'), t.Find('c', 3), t.Find('c', 6), t.Find('x'), t.Find("bc"), t.Find("bc", 2),
                    t.Find("bcd"), t.ReverseFind('c'), t.ReverseFind('z'), t.FindOneOf("xcb"), t.FindOneOf("xyz")}));
}

TEST(ValuesString, TrimsWhitespaceACharacterOrASet)
{
    CString s(" \t hello \r\n"), z("00120"), p("-+=value=+-"), all("   ");
    Strings steps;
    s.TrimRight();
    steps.push_back(S(s));
    s.TrimLeft();
    steps.push_back(S(s));
    z.TrimLeft('0');
    steps.push_back(S(z));
    z.TrimRight('0');
    steps.push_back(S(z));
    p.TrimLeft("+-");
    steps.push_back(S(p));
    p.TrimRight("-+=");
    steps.push_back(S(p));
    all.TrimRight();
    steps.push_back(S(all));
    EXPECT_EQ((Strings{" \t hello", "hello", "120", "12", "=value=+-", "=value", ""}), steps);
}

TEST(ValuesString, EditsReportCountsAndLengths)
{
    CString s("a-b-c");
    EXPECT_EQ(2, s.Replace('-', '+'));
    EXPECT_EQ("a+b+c", S(s));
    EXPECT_EQ(2, s.Replace("+", "--"));
    EXPECT_EQ("a--b--c", S(s));
    EXPECT_EQ(2, s.Replace("--", ""));
    EXPECT_EQ(0, s.Replace("x", "y"));
    EXPECT_EQ("abc", S(s));

    CString r("banana");
    EXPECT_EQ(3, r.Remove('a'));
    EXPECT_EQ("bnn", S(r));
    EXPECT_EQ(3, r.GetLength());

    CString i("ace");
    EXPECT_EQ((Ints{4, 5, 7}), (Ints{i.Insert(1, 'b'), i.Insert(3, "d"), i.Insert(100, "fg")}));
    EXPECT_EQ("abcdefg", S(i));
    EXPECT_EQ(5, i.Delete(1, 2));
    EXPECT_EQ("adefg", S(i));
    EXPECT_EQ((Ints{3, 3}), (Ints{i.Delete(3, 50), i.Delete(7)}));
    EXPECT_EQ("ade", S(i));
}

TEST(ValuesString, FormatsLikePrintfAndFillsNumberedInserts)
{
    CString s;
    s.Format("%d-%s-%05.1f-%c-%x", 42, "txt", 3.14159, 'Z', 255);
    EXPECT_EQ("42-txt-003.1-Z-ff", S(s));
    // Longer than any first guess at the buffer size.
    std::string big(5000, 'q');
    s.Format("[%s]", big.c_str());
    EXPECT_EQ(5002, s.GetLength());
    EXPECT_EQ(']', s[5001]);
    // The string's own value as an argument.
    CString self("abc");
    self.Format("<%s><%s>", (LPCTSTR)self, (LPCTSTR)self);
    EXPECT_EQ("<abc><abc>", S(self));

    CString msg, inserts;
    msg.FormatMessage("%2 before %1", "one", "two");
    LPCTSTR rglpsz[2] = { "first", "second" };
    AfxFormatStrings(inserts, "%2 then %1, %1 again; %3 stays", rglpsz, 2);
    EXPECT_EQ((Strings{"two before one", "second then first, first again; %3 stays"}), (Strings{S(msg), S(inserts)}));
}

TEST(ValuesString, BufferProtocolSetsTheLength)
{
    CString s("keep");
    LPTSTR p = s.GetBuffer(100);
    EXPECT_STREQ("keep", p);   // content survives growth
    strcpy(p, "replaced text");
    s.ReleaseBuffer();
    EXPECT_EQ(13, s.GetLength());
    EXPECT_EQ("replaced text", S(s));

    s.GetBuffer(0);
    s.ReleaseBuffer(8);
    EXPECT_EQ("replaced", S(s));

    p = s.GetBufferSetLength(3);
    EXPECT_EQ(3, s.GetLength());
    p[0] = 'R';
    s.ReleaseBuffer();
    s.FreeExtra();
    EXPECT_EQ("Rep", S(s));

    CString e;
    strcpy(e.GetBuffer(5), "abcde");
    e.ReleaseBuffer();
    CString l("lock");
    l.LockBuffer()[0] = 'L';
    l.UnlockBuffer();
    EXPECT_EQ((Strings{"abcde", "Lock"}), (Strings{S(e), S(l)}));
}

TEST(ValuesString, DoubleByteTrailBytesAreNeverSplit)
{
    ScopedMbcp cp(932);
    ASSERT_TRUE(cp.Ok());
    const CString dbcs(kSjisBackslashTrail);

    CString path = CString("a\\") + dbcs;
    EXPECT_EQ((Ints{-1, 1, -1, -1, 2}),
              (Ints{dbcs.Find('\\'), path.ReverseFind('\\'), dbcs.FindOneOf("\\/"), dbcs.Find("\\"), path.Find(dbcs)}));

    CString trimmed = dbcs;
    trimmed.TrimRight('\\');
    EXPECT_EQ(kSjisBackslashTrail, S(trimmed));
    trimmed.TrimRight("\\/");
    EXPECT_EQ(kSjisBackslashTrail, S(trimmed));

    CString replaced = path;
    EXPECT_EQ(1, replaced.Replace('\\', '/'));
    EXPECT_EQ(S(CString("a/") + dbcs), S(replaced));

    CString upper = CString("ab") + kSjisLowerATrail;
    upper.MakeUpper();
    EXPECT_EQ("AB\x83\x61", S(upper));
    EXPECT_EQ((Ints{1, 0}), (Ints{upper.Remove('A'), upper.Remove('a')}));
    EXPECT_EQ("B\x83\x61", S(upper));

    CString reversed = CString("x") + dbcs + "y";
    reversed.MakeReverse();
    EXPECT_EQ("y\x95\x5Cx", S(reversed));
    EXPECT_EQ(kSjisBackslashTrail, S((dbcs + "\\tail").SpanExcluding("\\")));
}

TEST(ValuesString, MissingResourcesAndFieldsLeaveTheStringEmpty)
{
    CString s("previous");
    EXPECT_FALSE(s.LoadString(0xFFF1));
    EXPECT_TRUE(s.IsEmpty());

    Strings fields;
    for (auto [text, index, sep] : {std::tuple<LPCTSTR, int, TCHAR>{"one\ntwo\n\nfour", 1, '\n'},
                                    {"one\ntwo\n\nfour", 2, '\n'}, {"a,b,c", 2, ','}}) {
        EXPECT_TRUE(AfxExtractSubString(s, text, index, sep));
        fields.push_back(S(s));
    }
    EXPECT_EQ((Strings{"two", "", "c"}), fields);
    EXPECT_FALSE(AfxExtractSubString(s, "a,b,c", 3, ','));
    EXPECT_TRUE(s.IsEmpty());
}
