#include <QTest>

#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

#include <lib_plugins_management/fast_delegate.h>

namespace {
int g_allocations = 0;
}

// Counts what the program allocates.
void* operator new(std::size_t size)
{
    ++g_allocations;
    void* memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using fastdelegate::FastDelegate2;
using fastdelegate::MakeDelegate;
using Delegate = FastDelegate2<int, const int&, int>;

class Base
{
public:
    virtual ~Base() = default;
    virtual int combine(int first, const int& second) { return first * 10 + second; }
    int plain(int first, const int& second) { return m_offset + first + second; }

protected:
    int m_offset = 1000;
};

class Other
{
public:
    virtual ~Other() = default;
    virtual int other(int first, const int& second) { return m_own + first - second; }

private:
    int m_own = 500;
};

class Derived : public Base, public Other
{
public:
    int combine(int first, const int& second) override { return first * 100 + second; }
};

class Diamond : public virtual Base
{
public:
    int diamond(int first, const int& second) { return m_offset - first - second; }
};

static_assert(sizeof(Delegate) == 2 * sizeof(void*) + sizeof(int(Base::*)(int, const int&)),
              "two words and the pointer to the member function");
static_assert(std::is_trivially_copyable_v<Delegate>, "a plain value");
static_assert(std::is_nothrow_default_constructible_v<Delegate>, "nothing to be made");
static_assert(!std::is_convertible_v<Delegate, bool>, "the test for emptiness is explicit");

} // namespace

class TstFastDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWhenMadeOfNothing();
    void isNotEmptyWhenBound();
    void callsTheMember();
    void callsTheOverride();
    void callsAMemberOfTheSecondBase();
    void callsAnOverrideOfTheSecondBaseThroughIt();
    void callsAMemberOfAVirtualBasesClass();
    void copyCallsTheSame();
    void assignmentReplacesIt();
    void constDelegateMayBeCalled();
    void referencesArePassedAsTheyAre();
    void nothingIsAllocated();
};

void TstFastDelegate::isEmptyWhenMadeOfNothing()
{
    const Delegate delegate;
    QVERIFY(delegate.empty());
    QVERIFY(!delegate);
}

void TstFastDelegate::isNotEmptyWhenBound()
{
    Base object;
    const Delegate delegate(&object, &Base::plain);
    QVERIFY(!delegate.empty());
    QVERIFY(bool(delegate));
}

void TstFastDelegate::callsTheMember()
{
    Base object;
    QCOMPARE(MakeDelegate(&object, &Base::plain)(1, 2), 1003);
}

void TstFastDelegate::callsTheOverride()
{
    Derived object;
    Base* base = &object;
    QCOMPARE(MakeDelegate(base, &Base::combine)(1, 2), 102);
    QCOMPARE(MakeDelegate(&object, &Base::combine)(1, 2), 102);
}

void TstFastDelegate::callsAMemberOfTheSecondBase()
{
    Derived object;
    QCOMPARE(MakeDelegate(&object, &Other::other)(7, 2), 505);
    QCOMPARE(MakeDelegate(&object, &Derived::other)(7, 2), 505);
}

void TstFastDelegate::callsAnOverrideOfTheSecondBaseThroughIt()
{
    class Last : public Derived
    {
    public:
        int other(int first, const int& second) override { return first + second; }
    };
    Last object;
    Other* other = &object;
    QCOMPARE(MakeDelegate(other, &Other::other)(7, 2), 9);
}

void TstFastDelegate::callsAMemberOfAVirtualBasesClass()
{
    Diamond object;
    QCOMPARE(MakeDelegate(&object, &Diamond::diamond)(1, 2), 997);
    QCOMPARE(MakeDelegate(&object, &Base::plain)(1, 2), 1003);
}

void TstFastDelegate::copyCallsTheSame()
{
    Base object;
    const Delegate delegate(&object, &Base::plain);
    const Delegate copy(delegate); // NOLINT(performance-unnecessary-copy-initialization): the copy is the test
    QCOMPARE(copy(1, 2), delegate(1, 2));
}

void TstFastDelegate::assignmentReplacesIt()
{
    Base object;
    Delegate delegate(&object, &Base::plain);
    delegate = Delegate(&object, &Base::combine);
    QCOMPARE(delegate(1, 2), 12);
    delegate = Delegate();
    QVERIFY(delegate.empty());
}

void TstFastDelegate::constDelegateMayBeCalled()
{
    Base object;
    const Delegate delegate(&object, &Base::combine);
    QCOMPARE(delegate(3, 4), 34);
}

void TstFastDelegate::referencesArePassedAsTheyAre()
{
    class Keeper
    {
    public:
        int keep(int, const int& second)
        {
            seen = &second;
            return 0;
        }
        const int* seen = nullptr;
    };
    const auto keeper = std::make_unique<Keeper>(); // on the stack gcc 12 takes it for uninitialized
    const int value = 5;
    MakeDelegate(keeper.get(), &Keeper::keep)(0, value);
    QCOMPARE(keeper->seen, &value);
}

void TstFastDelegate::nothingIsAllocated()
{
    Derived object;
    const int before = g_allocations;
    const Delegate made = MakeDelegate(&object, &Other::other);
    Delegate copy = made;
    copy = made;
    const int result = copy(7, 2);
    const int allocated = g_allocations - before;
    QCOMPARE(allocated, 0);
    QCOMPARE(result, 505);
    delete new int(0); // the count counts NOLINT(clang-analyzer-unix.Malloc): operator delete above frees it
    QVERIFY(g_allocations > before);
}

QTEST_GUILESS_MAIN(TstFastDelegate)
#include "tst_fast_delegate.moc"
