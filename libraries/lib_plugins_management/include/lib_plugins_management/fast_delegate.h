#pragma once

#include <cstring>

namespace fastdelegate {

namespace detail {

class UnknownClass;
using UnknownMemberFunction = void (UnknownClass::*)();

} // namespace detail

/// A member function bound to an object, called with two values. A plain value: making, copying and calling one never
/// allocates. It does not own the object and does not know when the object goes away.
template <class Param1, class Param2, class Result>
class FastDelegate2
{
public:
    FastDelegate2() = default;

    template <class Object, class Class>
    FastDelegate2(Object* object, Result (Class::*function)(Param1, Param2))
        : m_object(static_cast<Class*>(object)), m_call(&callMember<Class, Result (Class::*)(Param1, Param2)>)
    {
        // Pointers to member functions all have one size as long as the class is known, which it is here.
        static_assert(sizeof(function) <= sizeof(m_function), "a pointer to a member function must fit");
        std::memcpy(m_function, &function, sizeof(function));
    }

    /// Only for a delegate that is not empty.
    Result operator()(Param1 first, Param2 second) const { return m_call(*this, first, second); }

    bool empty() const { return m_call == nullptr; }
    explicit operator bool() const { return !empty(); }

private:
    template <class Class, class Function>
    static Result callMember(const FastDelegate2& delegate, Param1 first, Param2 second)
    {
        Function function = nullptr;
        std::memcpy(&function, delegate.m_function, sizeof(function));
        return (static_cast<Class*>(delegate.m_object)->*function)(first, second);
    }

    void* m_object = nullptr;
    Result (*m_call)(const FastDelegate2&, Param1, Param2) = nullptr;
    alignas(detail::UnknownMemberFunction) unsigned char m_function[sizeof(detail::UnknownMemberFunction)] = {};
};

template <class Object, class Class, class Param1, class Param2, class Result>
FastDelegate2<Param1, Param2, Result> MakeDelegate(Object* object, Result (Class::*function)(Param1, Param2))
{
    return FastDelegate2<Param1, Param2, Result>(object, function);
}

} // namespace fastdelegate
