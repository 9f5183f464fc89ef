// CString: construction, comparison, searching, editing, formatting, the raw
// buffer protocol and multibyte (DBCS) awareness.
#include <gtest/gtest.h>

#include "afx.h"

#include <mbctype.h>
#include <string.h>
#include <string>

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

} // namespace

TEST(ValuesString, ConstructsFromCharsCountsAndRepeats)
{
    EXPECT_STREQ("xxx", (LPCTSTR)CString('x', 3));
    EXPECT_STREQ("abc", (LPCTSTR)CString("abcdef", 3));
    EXPECT_STREQ("", (LPCTSTR)CString((LPCTSTR)NULL));
    EXPECT_STREQ("wide", (LPCTSTR)CString(L"wide"));
    CString s;
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(0, s.GetLength());
    EXPECT_STREQ("", (LPCTSTR)s);
}

TEST(ValuesString, ConcatenatesWithEveryOperandKind)
{
    CString a("ab");
    EXPECT_STREQ("abcd", (LPCTSTR)(a + CString("cd")));
    EXPECT_STREQ("ab!", (LPCTSTR)(a + '!'));
    EXPECT_STREQ("!ab", (LPCTSTR)('!' + a));
    EXPECT_STREQ("abxy", (LPCTSTR)(a + "xy"));
    EXPECT_STREQ("xyab", (LPCTSTR)("xy" + a));

    CString s("12");
    s += s;   // appending itself
    s += '3';
    s += (LPCTSTR)s + 2;   // appending from its own buffer
    EXPECT_STREQ("12123123", (LPCTSTR)s);
    for (int i = 0; i < 1000; i++)
        s += "z";
    EXPECT_EQ(1008, s.GetLength());
}

TEST(ValuesString, CopiesAreIndependent)
{
    CString a("one");
    CString b(a);
    CString c;
    c = a;
    b.SetAt(0, 'O');
    c.MakeUpper();
    EXPECT_STREQ("one", (LPCTSTR)a);
    EXPECT_STREQ("One", (LPCTSTR)b);
    EXPECT_STREQ("ONE", (LPCTSTR)c);
    a = a;   // self-assignment keeps the value
    EXPECT_STREQ("one", (LPCTSTR)a);
}

TEST(ValuesString, ComparesWithStringOnEitherSide)
{
    CString abc("abc");
    EXPECT_TRUE(abc == "abc");
    EXPECT_TRUE("abc" == abc);
    EXPECT_TRUE(abc == CString("abc"));
    EXPECT_TRUE(abc != "abd");
    EXPECT_TRUE(abc < "abd");
    EXPECT_TRUE("abb" < abc);
    EXPECT_TRUE(abc > "ab");
    EXPECT_TRUE(abc <= "abc");
    EXPECT_TRUE("abd" >= abc);
    EXPECT_LT(abc.Compare("abd"), 0);
    EXPECT_NE(0, abc.Compare("ABC"));
    EXPECT_EQ(0, abc.CompareNoCase("ABC"));
    EXPECT_GT(abc.CompareNoCase("ABB"), 0);
    EXPECT_EQ(0, abc.Collate("abc"));
}

TEST(ValuesString, ExtractionClampsToTheString)
{
    CString s("abcdef");
    EXPECT_STREQ("cde", (LPCTSTR)s.Mid(2, 3));
    EXPECT_STREQ("cdef", (LPCTSTR)s.Mid(2));
    EXPECT_STREQ("ef", (LPCTSTR)s.Mid(4, 100));
    EXPECT_STREQ("", (LPCTSTR)s.Mid(10));
    EXPECT_STREQ("ab", (LPCTSTR)s.Mid(-5, 2));
    EXPECT_STREQ("abc", (LPCTSTR)s.Left(3));
    EXPECT_STREQ("", (LPCTSTR)s.Left(-1));
    EXPECT_STREQ("abcdef", (LPCTSTR)s.Left(99));
    EXPECT_STREQ("def", (LPCTSTR)s.Right(3));
    EXPECT_STREQ("abcdef", (LPCTSTR)s.Right(99));
    EXPECT_STREQ("123", (LPCTSTR)CString("123abc").SpanIncluding("0123456789"));
    EXPECT_STREQ("key", (LPCTSTR)CString("key=value").SpanExcluding("=:"));
    EXPECT_EQ('c', s[2]);
    EXPECT_EQ('f', s.GetAt(5));
}

TEST(ValuesString, FindsCharactersAndSubstrings)
{
    CString s("abcabc");
    EXPECT_EQ(2, s.Find('c'));
    EXPECT_EQ(5, s.Find('c', 3));
    EXPECT_EQ(-1, s.Find('c', 6));
    EXPECT_EQ(-1, s.Find('x'));
    EXPECT_EQ(1, s.Find("bc"));
    EXPECT_EQ(4, s.Find("bc", 2));
    EXPECT_EQ(-1, s.Find("bcd"));
    EXPECT_EQ(5, s.ReverseFind('c'));
    EXPECT_EQ(-1, s.ReverseFind('z'));
    EXPECT_EQ(1, s.FindOneOf("xcb"));
    EXPECT_EQ(-1, s.FindOneOf("xyz"));
}

TEST(ValuesString, TrimsWhitespaceACharacterOrASet)
{
    CString s(" \t hello \r\n");
    s.TrimRight();
    EXPECT_STREQ(" \t hello", (LPCTSTR)s);
    s.TrimLeft();
    EXPECT_STREQ("hello", (LPCTSTR)s);

    CString z("00120");
    z.TrimLeft('0');
    EXPECT_STREQ("120", (LPCTSTR)z);
    z.TrimRight('0');
    EXPECT_STREQ("12", (LPCTSTR)z);

    CString p("-+=value=+-");
    p.TrimLeft("+-");
    EXPECT_STREQ("=value=+-", (LPCTSTR)p);
    p.TrimRight("-+=");
    EXPECT_STREQ("=value", (LPCTSTR)p);

    CString all("   ");
    all.TrimRight();
    EXPECT_TRUE(all.IsEmpty());
}

TEST(ValuesString, EditsReportCountsAndLengths)
{
    CString s("a-b-c");
    EXPECT_EQ(2, s.Replace('-', '+'));
    EXPECT_STREQ("a+b+c", (LPCTSTR)s);
    EXPECT_EQ(2, s.Replace("+", "--"));
    EXPECT_STREQ("a--b--c", (LPCTSTR)s);
    EXPECT_EQ(2, s.Replace("--", ""));
    EXPECT_STREQ("abc", (LPCTSTR)s);
    EXPECT_EQ(0, s.Replace("x", "y"));

    CString r("banana");
    EXPECT_EQ(3, r.Remove('a'));
    EXPECT_STREQ("bnn", (LPCTSTR)r);
    EXPECT_EQ(3, r.GetLength());

    CString i("ace");
    EXPECT_EQ(4, i.Insert(1, 'b'));
    EXPECT_EQ(5, i.Insert(3, "d"));
    EXPECT_EQ(7, i.Insert(100, "fg"));
    EXPECT_STREQ("abcdefg", (LPCTSTR)i);
    EXPECT_EQ(5, i.Delete(1, 2));
    EXPECT_STREQ("adefg", (LPCTSTR)i);
    EXPECT_EQ(3, i.Delete(3, 50));
    EXPECT_STREQ("ade", (LPCTSTR)i);
    EXPECT_EQ(3, i.Delete(7));

    CString m("Mixed Case 123");
    m.MakeUpper();
    EXPECT_STREQ("MIXED CASE 123", (LPCTSTR)m);
    m.MakeLower();
    EXPECT_STREQ("mixed case 123", (LPCTSTR)m);
    m.MakeReverse();
    EXPECT_STREQ("321 esac dexim", (LPCTSTR)m);
}

TEST(ValuesString, FormatsLikePrintf)
{
    CString s;
    s.Format("%d-%s-%05.1f-%c-%x", 42, "txt", 3.14159, 'Z', 255);
    EXPECT_STREQ("42-txt-003.1-Z-ff", (LPCTSTR)s);

    // Longer than any first guess at the buffer size.
    std::string big(5000, 'q');
    s.Format("[%s]", big.c_str());
    EXPECT_EQ(5002, s.GetLength());
    EXPECT_EQ(']', s[5001]);

    // The string's own value as an argument.
    CString self("abc");
    self.Format("<%s><%s>", (LPCTSTR)self, (LPCTSTR)self);
    EXPECT_STREQ("<abc><abc>", (LPCTSTR)self);

    CString msg;
    msg.FormatMessage("%2 before %1", "one", "two");
    EXPECT_STREQ("two before one", (LPCTSTR)msg);
}

TEST(ValuesString, BufferProtocolSetsTheLength)
{
    CString s("keep");
    LPTSTR p = s.GetBuffer(100);
    EXPECT_STREQ("keep", p);   // content survives growth
    strcpy(p, "replaced text");
    s.ReleaseBuffer();
    EXPECT_EQ(13, s.GetLength());
    EXPECT_STREQ("replaced text", (LPCTSTR)s);

    p = s.GetBuffer(0);
    s.ReleaseBuffer(8);
    EXPECT_STREQ("replaced", (LPCTSTR)s);

    p = s.GetBufferSetLength(3);
    EXPECT_EQ(3, s.GetLength());
    p[0] = 'R';
    s.ReleaseBuffer();
    EXPECT_STREQ("Rep", (LPCTSTR)s);

    s.FreeExtra();
    EXPECT_STREQ("Rep", (LPCTSTR)s);

    CString e;
    strcpy(e.GetBuffer(5), "abcde");
    e.ReleaseBuffer();
    EXPECT_STREQ("abcde", (LPCTSTR)e);

    CString l("lock");
    LPTSTR pl = l.LockBuffer();
    pl[0] = 'L';
    l.UnlockBuffer();
    EXPECT_STREQ("Lock", (LPCTSTR)l);
}

TEST(ValuesString, SingleByteCodePageTreatsEveryByteAsACharacter)
{
    ScopedMbcp cp(1252);
    ASSERT_TRUE(cp.Ok());
    CString s(kSjisBackslashTrail);
    EXPECT_EQ(1, s.Find('\\'));
    EXPECT_EQ(1, s.ReverseFind('\\'));
}

TEST(ValuesString, DoubleByteTrailBytesAreNeverSplit)
{
    ScopedMbcp cp(932);
    ASSERT_TRUE(cp.Ok());
    const CString dbcs(kSjisBackslashTrail);

    CString path = CString("a\\") + dbcs;
    EXPECT_EQ(-1, dbcs.Find('\\'));
    EXPECT_EQ(1, path.ReverseFind('\\'));
    EXPECT_EQ(-1, dbcs.FindOneOf("\\/"));
    EXPECT_EQ(-1, dbcs.Find("\\"));
    EXPECT_EQ(2, path.Find(dbcs));

    CString trimmed = dbcs;
    trimmed.TrimRight('\\');
    EXPECT_STREQ(kSjisBackslashTrail, (LPCTSTR)trimmed);
    trimmed.TrimRight("\\/");
    EXPECT_STREQ(kSjisBackslashTrail, (LPCTSTR)trimmed);

    CString replaced = path;
    EXPECT_EQ(1, replaced.Replace('\\', '/'));
    EXPECT_STREQ((LPCTSTR)(CString("a/") + dbcs), (LPCTSTR)replaced);

    CString upper = CString("ab") + kSjisLowerATrail;
    upper.MakeUpper();
    EXPECT_STREQ("AB\x83\x61", (LPCTSTR)upper);
    EXPECT_EQ(1, upper.Remove('A'));
    EXPECT_EQ(0, upper.Remove('a'));
    EXPECT_STREQ("B\x83\x61", (LPCTSTR)upper);

    CString reversed = CString("x") + dbcs + "y";
    reversed.MakeReverse();
    EXPECT_STREQ("y\x95\x5Cx", (LPCTSTR)reversed);

    EXPECT_STREQ(kSjisBackslashTrail, (LPCTSTR)(dbcs + "\\tail").SpanExcluding("\\"));
}

TEST(ValuesString, MissingResourceStringLoadsNothing)
{
    CString s("previous");
    EXPECT_FALSE(s.LoadString(0xFFF1));
    EXPECT_TRUE(s.IsEmpty());
}

TEST(ValuesString, ExtractsSeparatedFields)
{
    CString s;
    EXPECT_TRUE(AfxExtractSubString(s, "one\ntwo\n\nfour", 1));
    EXPECT_STREQ("two", (LPCTSTR)s);
    EXPECT_TRUE(AfxExtractSubString(s, "one\ntwo\n\nfour", 2));
    EXPECT_STREQ("", (LPCTSTR)s);
    EXPECT_TRUE(AfxExtractSubString(s, "a,b,c", 2, ','));
    EXPECT_STREQ("c", (LPCTSTR)s);
    EXPECT_FALSE(AfxExtractSubString(s, "a,b,c", 3, ','));
    EXPECT_TRUE(s.IsEmpty());
}

TEST(ValuesString, FormatStringsReplacesNumberedInserts)
{
    CString s;
    LPCTSTR rglpsz[2] = { "first", "second" };
    AfxFormatStrings(s, "%2 then %1, %1 again; %3 stays", rglpsz, 2);
    EXPECT_STREQ("second then first, first again; %3 stays", (LPCTSTR)s);
}
