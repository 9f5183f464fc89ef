// Arrays, lists and maps, one table of element types over the templates and
// the classic classes built on them: ordering, growth, insertion and removal,
// and element lifetimes (every constructed element is destroyed exactly once).
#include <gtest/gtest.h>

#include "afx.h"
#include "afxtempl.h"

#include <stdlib.h>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

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

// Element of each collection for a small number, and back (0 is the empty element).
int ValueOf(const Tracked& t) { return t.Value(); }
int ValueOf(const CString& s) { return atoi(s); }
int ValueOf(void* p) { return (int)(INT_PTR)p; }
int ValueOf(DWORD d) { return (int)d; }
template <class T> T Make(int n) { return T(n); }
template <> CString Make<CString>(int n) { return n ? CString(std::to_string(n).c_str()) : CString(); }
template <> void* Make<void*>(int n) { return (void*)(INT_PTR)n; }

template <class COLL>
std::string Values(const COLL& coll)
{
    std::string s;
    for (int i = 0; i < coll.GetSize(); i++)
        s.append(i ? "," : "").append(std::to_string(ValueOf(coll.GetAt(i))));
    return s;
}

template <class LIST>
std::string ListValues(const LIST& list)
{
    std::string s;
    for (POSITION pos = list.GetHeadPosition(); pos != NULL;)
        s.append(s.empty() ? "" : ",").append(std::to_string(ValueOf(list.GetNext(pos))));
    return s;
}

template <class ARRAY>
class ValuesArray : public ::testing::Test
{
protected:
    using T = typename ARRAY::BASE_TYPE;
    static T E(int n) { return Make<T>(n); }
    void TearDown() override { EXPECT_EQ(0, Tracked::s_nLive); }
};
using Arrays = ::testing::Types<CArray<Tracked, const Tracked&>, CStringArray, CPtrArray, CDWordArray>;
TYPED_TEST_SUITE(ValuesArray, Arrays);

TYPED_TEST(ValuesArray, GrowsKeepsEveryElementAndZeroesNewOnes)
{
    TypeParam arr;
    for (int i = 0; i < 1000; i++)
        ASSERT_EQ(i, arr.Add(this->E(i)));
    EXPECT_EQ(1000, arr.GetSize());
    EXPECT_EQ(999, arr.GetUpperBound());
    for (int i = 0; i < 1000; i++)
        ASSERT_EQ(i, ValueOf(arr[i]));
    arr.SetSize(10);
    arr.FreeExtra();
    EXPECT_EQ("0,1,2,3,4,5,6,7,8,9", Values(arr));
    arr.SetSize(12, 100);
    EXPECT_EQ(0, ValueOf(arr[11]));   // new elements are zero / empty
    arr.SetAtGrow(14, this->E(5));
    EXPECT_EQ("0,1,2,3,4,5,6,7,8,9,0,0,0,0,5", Values(arr));
    arr.RemoveAll();
    EXPECT_TRUE(arr.IsEmpty());
}

TYPED_TEST(ValuesArray, InsertsAndRemovesRanges)
{
    TypeParam arr;
    for (int i = 0; i < 5; i++)
        arr.Add(this->E(i));
    arr.InsertAt(2, this->E(9), 3);
    EXPECT_EQ("0,1,9,9,9,2,3,4", Values(arr));
    arr.RemoveAt(1, 3);
    EXPECT_EQ("0,9,2,3,4", Values(arr));
    arr.InsertAt(7, this->E(7));   // past the end: the gap is default elements
    EXPECT_EQ("0,9,2,3,4,0,0,7", Values(arr));
    arr.RemoveAt(6, 100);          // removal is clipped at the end
    arr.SetAt(0, this->E(8));
    arr.ElementAt(1) = this->E(6);
    EXPECT_EQ("8,6,2,3,4,0", Values(arr));

    TypeParam other;
    other.Add(this->E(50));
    other.Add(this->E(51));
    arr.InsertAt(1, &other);
    EXPECT_EQ("8,50,51,6,2,3,4,0", Values(arr));
    arr.InsertAt(0, &arr);   // inserting itself
    EXPECT_EQ("8,50,51,6,2,3,4,0,8,50,51,6,2,3,4,0", Values(arr));
}

TYPED_TEST(ValuesArray, CopyAndAppend)
{
    TypeParam a, b;
    for (int i = 1; i < 4; i++)
        a.Add(this->E(i));
    b.Add(this->E(7));
    EXPECT_EQ(1, b.Append(a));
    EXPECT_EQ("7,1,2,3", Values(b));
    EXPECT_EQ(4, b.Append(b));
    EXPECT_EQ("7,1,2,3,7,1,2,3", Values(b));
    b.Copy(a);
    EXPECT_EQ("1,2,3", Values(b));
    EXPECT_EQ(3, b.GetCount());
}

TEST(ValuesArrayOwnElement, AddingItsOwnElementSurvivesReallocation)
{
    CStringArray arr;
    arr.SetSize(0, 1);   // grow by one: every Add reallocates
    arr.Add(CString("first, long enough to live on the heap"));
    for (int i = 0; i < 50; i++)
        arr.Add(arr.ElementAt(0));
    for (int i = 0; i < 50; i++)
        arr.InsertAt(0, arr.ElementAt(arr.GetUpperBound()));
    ASSERT_EQ(101, arr.GetSize());
    for (int i = 0; i < arr.GetSize(); i++)
        ASSERT_STREQ("first, long enough to live on the heap", (LPCTSTR)arr[i]) << i;
    EXPECT_TRUE(arr.IsKindOf(RUNTIME_CLASS(CStringArray)));
}

// ---- lists ----

template <class LIST>
class ValuesList : public ::testing::Test
{
protected:
    using T = std::remove_reference_t<decltype(std::declval<LIST&>().GetHead())>;
    static T E(int n) { return Make<T>(n); }
    void TearDown() override { EXPECT_EQ(0, Tracked::s_nLive); }
};
using Lists = ::testing::Types<CList<Tracked, const Tracked&>, CStringList, CPtrList>;
TYPED_TEST_SUITE(ValuesList, Lists);

TYPED_TEST(ValuesList, KeepsOrderAndPositions)
{
    TypeParam list;
    list.AddTail(this->E(2));
    list.AddHead(this->E(1));
    POSITION pos4 = list.AddTail(this->E(4));
    list.InsertBefore(pos4, this->E(3));
    list.InsertAfter(pos4, this->E(5));
    list.InsertBefore(list.GetHeadPosition(), this->E(6));
    EXPECT_EQ("6,1,2,3,4,5", ListValues(list));
    std::string backwards;
    for (POSITION pos = list.GetTailPosition(); pos != NULL;)
        backwards += std::to_string(ValueOf(list.GetPrev(pos)));
    EXPECT_EQ("543216", backwards);

    EXPECT_EQ(3, ValueOf(list.GetAt(list.FindIndex(3))));
    EXPECT_EQ(NULL, list.FindIndex(6));
    EXPECT_EQ(pos4, list.Find(this->E(4)));
    EXPECT_EQ(NULL, list.Find(this->E(4), pos4));

    // Removing while iterating: the saved position stays valid.
    for (POSITION pos = list.GetHeadPosition(); pos != NULL;)
    {
        POSITION posCur = pos;
        if (ValueOf(list.GetNext(pos)) % 2 == 1)
            list.RemoveAt(posCur);
    }
    EXPECT_EQ("6,2,4", ListValues(list));
    EXPECT_EQ(6, ValueOf(list.RemoveHead()));
    EXPECT_EQ(4, ValueOf(list.RemoveTail()));
    EXPECT_EQ(2, ValueOf(list.GetHead()));
    EXPECT_EQ(2, ValueOf(list.GetTail()));

    TypeParam front;
    front.AddTail(this->E(1));
    front.AddTail(this->E(3));
    list.AddHead(&front);
    list.AddTail(&list);   // appending itself doubles it once
    EXPECT_EQ("1,3,2,1,3,2", ListValues(list));
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(NULL, list.GetHeadPosition());
}

// ---- maps ----

TEST(ValuesMap, LooksUpReplacesAndRemoves)
{
    CMapStringToPtr map;
    int v1 = 1, v2 = 2;
    void* p = NULL;
    EXPECT_FALSE(map.Lookup("one", p));
    map.SetAt("one", &v1);
    map.SetAt("two", &v2);
    EXPECT_TRUE(map.Lookup("one", p) && p == &v1);
    EXPECT_FALSE(map.Lookup("ONE", p));   // keys are case sensitive
    map.SetAt("one", &v2);
    EXPECT_TRUE(map.GetCount() == 2 && map["one"] == &v2);
    EXPECT_EQ(nullptr, map["three"]);   // operator[] inserts an empty value
    EXPECT_EQ(3, map.GetCount());
    EXPECT_TRUE(map.RemoveKey("three"));
    EXPECT_FALSE(map.RemoveKey("three"));
    EXPECT_EQ(2, map.GetCount());
    map.RemoveAll();
    EXPECT_EQ(NULL, map.GetStartPosition());
}

TEST(ValuesMap, IterationVisitsEveryKeyOnce)
{
    CMapStringToPtr map;
    for (int i = 0; i < 1000; i++)
        map[Make<CString>(i)] = (void*)(INT_PTR)i;
    for (int i = 0; i < 1000; i += 3)
        ASSERT_TRUE(map.RemoveKey(Make<CString>(i)));
    std::set<int> seen;
    POSITION pos = map.GetStartPosition();
    while (pos != NULL)
    {
        CString key;
        void* value;
        map.GetNextAssoc(pos, key, value);
        int n = (int)(INT_PTR)value;
        EXPECT_EQ(Make<CString>(n), key);
        EXPECT_NE(0, n % 3);
        EXPECT_TRUE(seen.insert(n).second) << "visited twice: " << n;
    }
    EXPECT_EQ(666u, seen.size());
    EXPECT_EQ(666, map.GetCount());
}

TEST(ValuesMap, TemplateMapOwnsItsValues)
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
}

} // namespace
