// Arrays, lists and maps: ordering, growth, insertion and removal, and
// element lifetimes (every constructed element is destroyed exactly once).
#include <gtest/gtest.h>

#include "afx.h"
#include "afxtempl.h"

#include <set>
#include <string>

namespace {

// An element type that counts its live instances and detects use after destruction.
struct Tracked
{
    static int s_nLive;
    int nValue;
    unsigned nMagic;

    Tracked() : nValue(0), nMagic(0x600D) { s_nLive++; }
    Tracked(int n) : nValue(n), nMagic(0x600D) { s_nLive++; }
    Tracked(const Tracked& other) : nValue(other.Value()), nMagic(0x600D) { s_nLive++; }
    Tracked& operator=(const Tracked& other)
    {
        EXPECT_EQ(0x600Du, nMagic);
        nValue = other.Value();
        return *this;
    }
    ~Tracked()
    {
        EXPECT_EQ(0x600Du, nMagic) << "destroyed twice or never constructed";
        nMagic = 0xDEAD;
        s_nLive--;
    }
    int Value() const
    {
        EXPECT_EQ(0x600Du, nMagic) << "used after destruction";
        return nValue;
    }
    bool operator==(const Tracked& other) const { return Value() == other.Value(); }
};
int Tracked::s_nLive = 0;

class Named : public CObject
{
public:
    explicit Named(int n) : m_n(n) {}
    int m_n;
};

template <class ARRAY>
std::string Values(const ARRAY& arr)
{
    std::string s;
    for (int i = 0; i < arr.GetSize(); i++)
        s += (i ? "," : "") + std::to_string(arr.GetAt(i).Value());
    return s;
}

} // namespace

// ---- CArray ----

TEST(ValuesArray, GrowsAndKeepsEveryElement)
{
    {
        CArray<Tracked, const Tracked&> arr;
        for (int i = 0; i < 1000; i++)
            EXPECT_EQ(i, arr.Add(Tracked(i)));
        EXPECT_EQ(1000, arr.GetSize());
        EXPECT_EQ(999, arr.GetUpperBound());
        EXPECT_EQ(1000, Tracked::s_nLive);
        for (int i = 0; i < 1000; i++)
            ASSERT_EQ(i, arr[i].Value());
        arr.SetSize(10);
        EXPECT_EQ(10, Tracked::s_nLive);
        arr.FreeExtra();
        EXPECT_EQ("0,1,2,3,4,5,6,7,8,9", Values(arr));
        arr.SetSize(12, 100);
        EXPECT_EQ(0, arr[11].Value());   // new elements are default-constructed
        EXPECT_EQ(12, Tracked::s_nLive);
    }
    EXPECT_EQ(0, Tracked::s_nLive);
}

TEST(ValuesArray, InsertsAndRemovesRanges)
{
    {
        CArray<Tracked, const Tracked&> arr;
        for (int i = 0; i < 5; i++)
            arr.Add(Tracked(i));
        arr.InsertAt(2, Tracked(9), 3);
        EXPECT_EQ("0,1,9,9,9,2,3,4", Values(arr));
        arr.RemoveAt(1, 3);
        EXPECT_EQ("0,9,2,3,4", Values(arr));
        arr.InsertAt(7, Tracked(7));   // past the end: the gap is default elements
        EXPECT_EQ("0,9,2,3,4,0,0,7", Values(arr));
        arr.RemoveAt(6, 100);          // removal is clipped at the end
        EXPECT_EQ("0,9,2,3,4,0", Values(arr));
        EXPECT_EQ(6, Tracked::s_nLive);

        CArray<Tracked, const Tracked&> other;
        other.Add(Tracked(50));
        other.Add(Tracked(51));
        arr.InsertAt(1, &other);
        EXPECT_EQ("0,50,51,9,2,3,4,0", Values(arr));
        arr.InsertAt(0, &arr);   // inserting itself
        EXPECT_EQ(16, arr.GetSize());
        EXPECT_EQ("0,50,51,9", Values(arr).substr(0, 9));
        EXPECT_EQ(18, Tracked::s_nLive);

        arr.SetAtGrow(20, Tracked(20));
        EXPECT_EQ(21, arr.GetSize());
        arr.RemoveAll();
        EXPECT_EQ(2, Tracked::s_nLive);
    }
    EXPECT_EQ(0, Tracked::s_nLive);
}

TEST(ValuesArray, AddingItsOwnElementSurvivesReallocation)
{
    CArray<CString, const CString&> arr;
    arr.SetSize(0, 1);   // grow by one: every Add reallocates
    arr.Add(CString("first, long enough to live on the heap"));
    for (int i = 0; i < 50; i++)
        arr.Add(arr.ElementAt(0));
    for (int i = 0; i < 50; i++)
        arr.InsertAt(0, arr.ElementAt(arr.GetUpperBound()));
    ASSERT_EQ(101, arr.GetSize());
    for (int i = 0; i < arr.GetSize(); i++)
        ASSERT_STREQ("first, long enough to live on the heap", (LPCTSTR)arr[i]) << i;
}

TEST(ValuesArray, CopyAndAppend)
{
    {
        CArray<Tracked, const Tracked&> a, b;
        for (int i = 0; i < 3; i++)
            a.Add(Tracked(i));
        b.Add(Tracked(7));
        EXPECT_EQ(1, b.Append(a));
        EXPECT_EQ("7,0,1,2", Values(b));
        EXPECT_EQ(4, b.Append(b));
        EXPECT_EQ("7,0,1,2,7,0,1,2", Values(b));
        b.Copy(a);
        EXPECT_EQ("0,1,2", Values(b));
        EXPECT_EQ(6, Tracked::s_nLive);
    }
    EXPECT_EQ(0, Tracked::s_nLive);
}

TEST(ValuesArray, StringArrayEditing)
{
    CStringArray arr;
    arr.Add("b");
    arr.Add(CString("d"));
    arr.InsertAt(0, "a");
    arr.InsertAt(2, "c", 2);
    ASSERT_EQ(5, arr.GetSize());
    EXPECT_STREQ("a", (LPCTSTR)arr[0]);
    EXPECT_STREQ("c", (LPCTSTR)arr[3]);
    EXPECT_STREQ("d", (LPCTSTR)arr.GetAt(4));
    arr.RemoveAt(2);
    arr.SetAt(0, "A");
    arr.ElementAt(1) += "!";
    arr.SetAtGrow(6, "g");
    ASSERT_EQ(7, arr.GetSize());
    EXPECT_TRUE(arr[5].IsEmpty());
    EXPECT_STREQ("A", (LPCTSTR)arr[0]);
    EXPECT_STREQ("b!", (LPCTSTR)arr[1]);
    EXPECT_STREQ("g", (LPCTSTR)arr.GetData()[6]);

    CStringArray copy;
    copy.Copy(arr);
    copy.Append(arr);
    EXPECT_EQ(14, copy.GetSize());
    EXPECT_STREQ("g", (LPCTSTR)copy[13]);
    EXPECT_TRUE(arr.IsKindOf(RUNTIME_CLASS(CStringArray)));
}

TEST(ValuesArray, ScalarArraysZeroNewElements)
{
    CDWordArray dw;
    dw.SetSize(4);
    dw[2] = 0xDEADBEEF;
    dw.SetSize(100);
    EXPECT_EQ(0xDEADBEEFu, dw[2]);
    for (int i = 4; i < 100; i++)
        ASSERT_EQ(0u, dw[i]);

    CPtrArray ptrs;
    int x = 0;
    ptrs.SetAtGrow(3, &x);
    EXPECT_EQ(nullptr, ptrs[0]);
    EXPECT_EQ(&x, ptrs[3]);

    CByteArray bytes;
    for (int i = 0; i < 300; i++)
        bytes.Add((BYTE)i);
    bytes.RemoveAt(0, 256);
    EXPECT_EQ(44, bytes.GetSize());
    EXPECT_EQ(0, bytes[0]);

    CTypedPtrArray<CPtrArray, int*> typed;
    typed.Add(&x);
    *typed[0] = 5;
    EXPECT_EQ(5, x);
}

// ---- lists ----

TEST(ValuesCollections, ListKeepsOrderAndPositions)
{
    CPtrList list;
    int v[6] = { 0, 1, 2, 3, 4, 5 };
    list.AddTail(&v[2]);
    list.AddHead(&v[1]);
    POSITION pos4 = list.AddTail(&v[4]);
    list.InsertBefore(pos4, &v[3]);
    list.InsertAfter(pos4, &v[5]);
    list.InsertBefore(list.GetHeadPosition(), &v[0]);
    ASSERT_EQ(6, list.GetCount());

    int expected = 0;
    for (POSITION pos = list.GetHeadPosition(); pos != NULL; )
        EXPECT_EQ(expected++, *(int*)list.GetNext(pos));
    EXPECT_EQ(6, expected);
    for (POSITION pos = list.GetTailPosition(); pos != NULL; )
        EXPECT_EQ(--expected, *(int*)list.GetPrev(pos));

    EXPECT_EQ(&v[3], list.GetAt(list.FindIndex(3)));
    EXPECT_EQ(NULL, list.FindIndex(6));
    EXPECT_EQ(pos4, list.Find(&v[4]));
    EXPECT_EQ(NULL, list.Find(&v[4], pos4));

    // Removing while iterating: the saved position stays valid.
    for (POSITION pos = list.GetHeadPosition(); pos != NULL; )
    {
        POSITION posCur = pos;
        int n = *(int*)list.GetNext(pos);
        if (n % 2 == 1)
            list.RemoveAt(posCur);
    }
    EXPECT_EQ(3, list.GetCount());
    EXPECT_EQ(&v[0], list.RemoveHead());
    EXPECT_EQ(&v[4], list.RemoveTail());
    EXPECT_EQ(&v[2], list.GetHead());
    EXPECT_EQ(list.GetHead(), list.GetTail());
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(NULL, list.GetHeadPosition());
}

TEST(ValuesCollections, ObjectListsAndTypedLists)
{
    Named a(1), b(2), c(3);
    CTypedPtrList<CObList, Named*> list;
    list.AddTail(&b);
    list.AddTail(&c);
    CTypedPtrList<CObList, Named*> front;
    front.AddTail(&a);
    list.AddHead(&front);
    list.AddTail(&list);   // appending itself doubles it once
    ASSERT_EQ(6, list.GetCount());
    int sum = 0;
    for (POSITION pos = list.GetHeadPosition(); pos != NULL; )
        sum = sum * 10 + list.GetNext(pos)->m_n;
    EXPECT_EQ(123123, sum);
    EXPECT_EQ(&a, list.RemoveHead());
}

TEST(ValuesCollections, TemplateListDestroysEveryElement)
{
    {
        CList<Tracked, const Tracked&> list;
        for (int i = 0; i < 100; i++)
            list.AddTail(Tracked(i));
        POSITION pos = list.Find(Tracked(50));
        ASSERT_NE(nullptr, pos);
        list.RemoveAt(pos);
        list.InsertAfter(list.FindIndex(10), Tracked(-1));
        EXPECT_EQ(-1, list.GetAt(list.FindIndex(11)).Value());
        EXPECT_EQ(0, list.RemoveHead().Value());
        EXPECT_EQ(99, list.RemoveTail().Value());
        EXPECT_EQ(98, Tracked::s_nLive);
        EXPECT_EQ(98, list.GetCount());
    }
    EXPECT_EQ(0, Tracked::s_nLive);

    CStringList names;
    names.AddTail("alpha");
    names.AddTail(CString("beta"));
    EXPECT_NE(nullptr, names.Find("beta"));
    EXPECT_EQ(nullptr, names.Find("gamma"));
}

// ---- maps ----

TEST(ValuesCollections, StringMapLooksUpReplacesAndRemoves)
{
    CMapStringToPtr map;
    int v1 = 1, v2 = 2;
    void* p = NULL;
    EXPECT_FALSE(map.Lookup("one", p));
    map.SetAt("one", &v1);
    map.SetAt("two", &v2);
    EXPECT_TRUE(map.Lookup("one", p));
    EXPECT_EQ(&v1, p);
    EXPECT_FALSE(map.Lookup("ONE", p));   // keys are case sensitive
    map.SetAt("one", &v2);
    EXPECT_EQ(2, map.GetCount());
    EXPECT_EQ(&v2, map["one"]);
    EXPECT_EQ(nullptr, map["three"]);   // operator[] inserts an empty value
    EXPECT_EQ(3, map.GetCount());
    EXPECT_TRUE(map.RemoveKey("three"));
    EXPECT_FALSE(map.RemoveKey("three"));
    EXPECT_EQ(2, map.GetCount());
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(NULL, map.GetStartPosition());
}

TEST(ValuesCollections, MapIterationVisitsEveryKeyOnce)
{
    CMapStringToPtr map;
    for (int i = 0; i < 1000; i++)
    {
        char sz[16];
        snprintf(sz, sizeof sz, "k%d", i);
        map[sz] = (void*)(INT_PTR)i;
    }
    for (int i = 0; i < 1000; i += 3)
    {
        char sz[16];
        snprintf(sz, sizeof sz, "k%d", i);
        ASSERT_TRUE(map.RemoveKey(sz));
    }
    std::set<int> seen;
    POSITION pos = map.GetStartPosition();
    while (pos != NULL)
    {
        CString key;
        void* value;
        map.GetNextAssoc(pos, key, value);
        int n = (int)(INT_PTR)value;
        EXPECT_EQ(CString("k") + std::to_string(n).c_str(), key);
        EXPECT_NE(0, n % 3);
        EXPECT_TRUE(seen.insert(n).second) << "visited twice: " << n;
    }
    EXPECT_EQ(666u, seen.size());
    EXPECT_EQ(666, map.GetCount());
}

TEST(ValuesCollections, TemplateMapOwnsItsValues)
{
    {
        CMap<int, int, Tracked, const Tracked&> map;
        map.InitHashTable(7);
        for (int i = 0; i < 50; i++)
            map.SetAt(i, Tracked(i * 2));
        Tracked t;
        EXPECT_TRUE(map.Lookup(21, t));
        EXPECT_EQ(42, t.Value());
        EXPECT_TRUE(map.RemoveKey(21));
        EXPECT_FALSE(map.Lookup(21, t));
        EXPECT_EQ(50, Tracked::s_nLive);   // 49 values and t
        int nCount = 0;
        for (POSITION pos = map.GetStartPosition(); pos != NULL; nCount++)
        {
            int key;
            map.GetNextAssoc(pos, key, t);
            EXPECT_EQ(key * 2, t.Value());
        }
        EXPECT_EQ(49, nCount);
    }
    EXPECT_EQ(0, Tracked::s_nLive);

    CMap<CString, LPCTSTR, int, int> byName;
    byName["x"] = 1;
    byName["x"] += 1;
    int n = 0;
    EXPECT_TRUE(byName.Lookup("x", n));
    EXPECT_EQ(2, n);

    CMapStringToString strings;
    strings.SetAt("k", "v");
    CString value;
    EXPECT_TRUE(strings.Lookup("k", value));
    EXPECT_STREQ("v", (LPCTSTR)value);
}
