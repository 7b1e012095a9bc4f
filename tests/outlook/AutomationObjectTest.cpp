#include "outlook/AutomationObject.h"

#include "module/CcvComException.h"
#include "tests/outlook/ScriptedDispatch.h"
#include "tests/support/TextOutput.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <psapi.h>
#include <string>
#include <thread>

namespace ts::test
{
namespace
{

constexpr IID kSomeInterface{0x12345678, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
constexpr IID kNoInterface{};

/// The code of the CcvComException that `action` raises; S_OK when it raises none.
template <typename Action>
HRESULT CodeOf(const Action& action)
{
    try
    {
        static_cast<void>(action());
    }
    catch (const CcvComException& error)
    {
        return error.GetCode();
    }
    return S_OK;
}

class AutomationObjectTest : public testing::Test
{
  protected:
    ~AutomationObjectTest() override
    {
        m_object.reset();
        EXPECT_EQ(1, m_server.references);
    }

    void Answer(const VARIANT& value)
    {
        m_server.onInvoke = [value](DISPID, VARIANT* result, EXCEPINFO*)
        {
            VARIANT source = value;
            return VariantCopy(result, &source);
        };
    }

    ScriptedDispatch m_server;
    std::optional<AutomationObject> m_object{
        AutomationObject(DispatchPtr(static_cast<IDispatch*>(&m_server)))};
    AutomationMember m_member{L"Subject"};
};

} // namespace

TEST_F(AutomationObjectTest, Constructor_WithoutAnObject_RaisesPointer)
{
    EXPECT_EQ(E_POINTER, CodeOf([] { AutomationObject{DispatchPtr()}; }));
}

TEST_F(AutomationObjectTest, Copies_ShareTheObject)
{
    EXPECT_EQ(2, m_server.references);
    {
        const AutomationObject copy(*m_object);
        EXPECT_EQ(3, m_server.references);
    }
    EXPECT_EQ(2, m_server.references);
    EXPECT_TRUE(m_server.queried.empty()) << "which nobody needs to ask for anything";
}

TEST_F(AutomationObjectTest, Get_Repeated_AsksForTheIdOnce)
{
    Answer(LongValue(5));
    EXPECT_EQ(5, m_object->GetLong(m_member));
    EXPECT_EQ(5, m_object->GetLong(m_member));
    EXPECT_EQ(5, AutomationObject(*m_object).GetLong(m_member));
    EXPECT_EQ(std::vector<std::wstring>{L"Subject"}, m_server.askedNames);
    ASSERT_EQ(3u, m_server.invocations.size());
    EXPECT_EQ(7, m_server.invocations[2].id);
}

TEST_F(AutomationObjectTest, Get_ThroughAnotherServersId_AsksAgain)
{
    m_member.RememberId(99);
    m_server.onInvoke = [](DISPID id, VARIANT* result, EXCEPINFO*) -> HRESULT
    {
        result->vt = VT_I4;
        result->lVal = id;
        return id == 7 ? S_OK : DISP_E_MEMBERNOTFOUND;
    };
    EXPECT_EQ(7, m_object->GetLong(m_member));
    EXPECT_EQ(7, m_object->GetLong(m_member));
    EXPECT_EQ(1u, m_server.askedNames.size());
    EXPECT_EQ(3u, m_server.invocations.size());
}

TEST_F(AutomationObjectTest, Get_OfAMemberThatIsNotThere_GivesUp)
{
    m_server.onInvoke = [](DISPID, VARIANT*, EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; };
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, CodeOf([&] { return m_object->GetLong(m_member); }));
    EXPECT_EQ(1u, m_server.invocations.size()) << "the id was fresh";
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, CodeOf([&] { return m_object->GetLong(m_member); }));
    EXPECT_EQ(3u, m_server.invocations.size()) << "the id was remembered, so it is asked for once more";
    EXPECT_EQ(2u, m_server.askedNames.size());
}

TEST_F(AutomationObjectTest, Get_OfAnUnknownName_RaisesAndRemembersNothing)
{
    m_server.ids.clear();
    EXPECT_EQ(DISP_E_UNKNOWNNAME, CodeOf([&] { return m_object->Get(m_member); }));
    EXPECT_EQ(DISPID_UNKNOWN, m_member.GetId());
    EXPECT_TRUE(m_server.invocations.empty());
    m_server.idsResult = E_ACCESSDENIED;
    EXPECT_EQ(E_ACCESSDENIED, CodeOf([&] { return m_object->Get(m_member); }));
}

TEST_F(AutomationObjectTest, Get_IsAPropertyGetWithoutArguments)
{
    static_cast<void>(m_object->Get(m_member));
    ASSERT_EQ(1u, m_server.invocations.size());
    const Invocation& seen = m_server.invocations[0];
    EXPECT_EQ(DISPATCH_PROPERTYGET, seen.kind);
    EXPECT_TRUE(IsEqualGUID(kNoInterface, seen.interfaceId));
    EXPECT_TRUE(seen.arguments.empty());
    EXPECT_TRUE(seen.named.empty());
    EXPECT_TRUE(seen.hasResult);
}

TEST_F(AutomationObjectTest, Put_NamesItsOneValueAndTakesNoAnswer)
{
    m_object->Put(m_member, TextValue(L"text"));
    ASSERT_EQ(1u, m_server.invocations.size());
    const Invocation& seen = m_server.invocations[0];
    EXPECT_EQ(DISPATCH_PROPERTYPUT, seen.kind);
    EXPECT_EQ(std::vector<std::wstring>{L"8:text"}, seen.arguments);
    EXPECT_EQ(std::vector<DISPID>{DISPID_PROPERTYPUT}, seen.named);
    EXPECT_FALSE(seen.hasResult);
}

TEST_F(AutomationObjectTest, Call_PassesArgumentsFromTheLastToTheFirst)
{
    m_object->Call(m_member, {TextValue(L"a"), LongValue(1), BoolValue(true), LongValue(2)});
    ASSERT_EQ(1u, m_server.invocations.size());
    const Invocation& seen = m_server.invocations[0];
    EXPECT_EQ(DISPATCH_METHOD, seen.kind);
    EXPECT_EQ((std::vector<std::wstring>{L"3:2", L"11:-1", L"3:1", L"8:a"}), seen.arguments);
    EXPECT_TRUE(seen.named.empty());
}

TEST_F(AutomationObjectTest, Call_WithoutArguments_PassesNone)
{
    m_object->Call(m_member);
    ASSERT_EQ(1u, m_server.invocations.size());
    EXPECT_TRUE(m_server.invocations[0].arguments.empty());
}

TEST_F(AutomationObjectTest, Call_AnsweringAnObject_ReleasesIt)
{
    ScriptedDispatch child;
    m_server.onInvoke = [&](DISPID, VARIANT* result, EXCEPINFO*)
    {
        result->vt = VT_DISPATCH;
        result->pdispVal = &child;
        child.AddRef();
        return S_OK;
    };
    m_object->Call(m_member);
    EXPECT_EQ(1, child.references);
    {
        const AutomationObject kept = m_object->CallForObject(m_member);
        EXPECT_EQ(2, child.references);
        const AutomationObject other = m_object->GetChild(m_member);
        EXPECT_EQ(3, child.references);
    }
    EXPECT_EQ(1, child.references);
}

TEST_F(AutomationObjectTest, Child_OfAnotherType_RaisesTypeMismatch)
{
    ScriptedDispatch unknown;
    _variant_t asUnknown(static_cast<IUnknown*>(&unknown));
    const std::array<_variant_t, 5> answers{_variant_t(), LongValue(0), TextValue(L"object"),
                                            _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR), asUnknown};
    for (const _variant_t& answer : answers)
    {
        Answer(answer);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetChild(m_member); })) << answer.vt;
        EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->CallForObject(m_member); }))
            << answer.vt;
    }
}

TEST_F(AutomationObjectTest, Child_ThatIsNull_RaisesPointer)
{
    VARIANT none{};
    none.vt = VT_DISPATCH;
    Answer(none);
    EXPECT_EQ(E_POINTER, CodeOf([&] { return m_object->GetChild(m_member); }));
    EXPECT_EQ(E_POINTER, CodeOf([&] { return m_object->CallForObject(m_member); }));
}

TEST_F(AutomationObjectTest, Values_OfATypeThatCannotBeConverted_RaiseTypeMismatch)
{
    VARIANT null{};
    null.vt = VT_NULL;
    Answer(null);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetText(m_member); }));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetLong(m_member); }));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetBool(m_member); }));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetDate(m_member); }));
}

TEST_F(AutomationObjectTest, Query_GivesTheSameObject)
{
    {
        const AutomationObject queried = m_object->Query(kSomeInterface);
        EXPECT_EQ(3, m_server.references);
        queried.Call(m_member);
        EXPECT_EQ(1u, m_server.invocations.size());
    }
    EXPECT_EQ(2, m_server.references);
    ASSERT_FALSE(m_server.queried.empty());
    EXPECT_TRUE(IsEqualGUID(kSomeInterface, m_server.queried.back()));
}

TEST_F(AutomationObjectTest, Query_ThatFailsOrAnswersNull_Raises)
{
    m_server.queryAnswersNull = true;
    EXPECT_EQ(E_POINTER, CodeOf([&] { return m_object->Query(kSomeInterface); }));
    m_server.queryResult = E_NOINTERFACE;
    EXPECT_EQ(E_NOINTERFACE, CodeOf([&] { return m_object->Query(kSomeInterface); }));
}

// --- Failures ---

namespace
{

int fillIns = 0;

HRESULT WINAPI FillIn(EXCEPINFO* error)
{
    ++fillIns;
    error->scode = E_ABORT;
    error->bstrDescription = SysAllocString(L"filled in");
    return S_OK;
}

struct Failure
{
    const char* title;
    HRESULT result;
    SCODE scode;
    bool deferred;
    HRESULT expected;
    const wchar_t* description;
};

class AutomationFailureTest : public AutomationObjectTest, public testing::WithParamInterface<Failure>
{
};

} // namespace

TEST_P(AutomationFailureTest, Invoke_Raises_TheServersOwnError)
{
    const Failure& failure = GetParam();
    fillIns = 0;
    m_server.onInvoke = [&](DISPID, VARIANT*, EXCEPINFO* error)
    {
        error->scode = failure.scode;
        error->bstrSource = SysAllocString(L"Calendar");
        error->bstrHelpFile = SysAllocString(L"help.chm");
        error->bstrDescription = failure.deferred ? nullptr : SysAllocString(failure.description);
        error->pfnDeferredFillIn = failure.deferred ? FillIn : nullptr;
        return failure.result;
    };
    try
    {
        m_object->Call(m_member);
        FAIL() << "nothing was raised";
    }
    catch (const CcvComException& error)
    {
        EXPECT_EQ(failure.expected, error.GetCode());
        const BSTR description = error.GetDescription();
        ASSERT_NE(nullptr, description);
        EXPECT_STREQ(failure.description, description);
        SysFreeString(description);
    }
    EXPECT_EQ(failure.deferred ? 1 : 0, fillIns);
}

INSTANTIATE_TEST_SUITE_P(
    , AutomationFailureTest,
    testing::Values(Failure{"OwnCode", DISP_E_EXCEPTION, E_ACCESSDENIED, false, E_ACCESSDENIED, L"denied"},
                    Failure{"NoCode", DISP_E_EXCEPTION, S_OK, false, DISP_E_EXCEPTION, L"odd"},
                    Failure{"CodeOfSuccess", DISP_E_EXCEPTION, S_FALSE, false, DISP_E_EXCEPTION, L"odd"},
                    Failure{"FilledInLater", DISP_E_EXCEPTION, 0, true, E_ABORT, L"filled in"},
                    Failure{"DirectCode", E_FAIL, E_ACCESSDENIED, false, E_FAIL, L"ignored code"}),
    [](const auto& failure) { return failure.param.title; });

namespace
{

/// The memory that the process has in use.
std::size_t WorkingSet()
{
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.WorkingSetSize;
}

} // namespace

TEST_F(AutomationObjectTest, Invoke_ThatFailsWithLongTexts_FreesThem)
{
    constexpr int kRounds = 100;
    // Far longer than what is kept for the next text.
    const std::wstring text(500'000, L'x');
    const std::size_t before = WorkingSet();
    for (const auto member : {&EXCEPINFO::bstrSource, &EXCEPINFO::bstrHelpFile, &EXCEPINFO::bstrDescription})
    {
        m_server.onInvoke = [&](DISPID, VARIANT*, EXCEPINFO* error)
        {
            error->*member = SysAllocString(text.c_str());
            return DISP_E_EXCEPTION;
        };
        for (int round = 0; round < kRounds; ++round)
        {
            EXPECT_EQ(DISP_E_EXCEPTION, CodeOf([&] { m_object->Call(m_member); }));
        }
    }
    // A text of each round would be a million bytes.
    EXPECT_GT(before + kRounds * text.size(), WorkingSet());
}

TEST_F(AutomationObjectTest, Invoke_ThatFailsWithoutAWord_RaisesItsResult)
{
    for (const HRESULT result : {E_FAIL, RPC_E_CALL_REJECTED, E_OUTOFMEMORY, DISP_E_EXCEPTION,
                                 HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)})
    {
        m_server.onInvoke = [result](DISPID, VARIANT*, EXCEPINFO*) { return result; };
        EXPECT_EQ(result, CodeOf([&] { m_object->Call(m_member); }));
        EXPECT_EQ(result, CodeOf([&] { return m_object->Get(m_member); }));
        EXPECT_EQ(result, CodeOf([&] { m_object->Put(m_member, LongValue(1)); }));
    }
}

TEST_F(AutomationObjectTest, Invoke_ThatSucceedsWithAWarning_RaisesNothing)
{
    m_server.onInvoke = [](DISPID, VARIANT*, EXCEPINFO*) { return S_FALSE; };
    EXPECT_NO_THROW(m_object->Call(m_member));
}

TEST_F(AutomationObjectTest, Invoke_ThatFailsWithAnAnswer_ReleasesTheAnswer)
{
    ScriptedDispatch child;
    m_member.RememberId(99);
    m_server.onInvoke = [&](DISPID, VARIANT* result, EXCEPINFO*)
    {
        result->vt = VT_DISPATCH;
        result->pdispVal = &child;
        child.AddRef();
        return DISP_E_MEMBERNOTFOUND;
    };
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, CodeOf([&] { m_object->Call(m_member); }));
    EXPECT_EQ(2u, m_server.invocations.size());
    EXPECT_EQ(1, child.references);
}

TEST_F(AutomationObjectTest, Invoke_ThatAnswersAnImpossibleType_RaisesOnlyItsOwnKind)
{
    m_member.RememberId(99);
    m_server.onInvoke = [](DISPID, VARIANT* result, EXCEPINFO*)
    {
        result->vt = 0x0FFF;
        return DISP_E_MEMBERNOTFOUND;
    };
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, CodeOf([&] { m_object->Call(m_member); }));
    m_server.onInvoke = [](DISPID, VARIANT* result, EXCEPINFO*)
    {
        result->vt = 0x0FFF;
        return S_OK;
    };
    EXPECT_NE(S_OK, CodeOf([&] { return m_object->GetLong(m_member); }));
    EXPECT_NE(S_OK, CodeOf([&] { return m_object->GetText(m_member); }));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, CodeOf([&] { return m_object->GetChild(m_member); }));
}

TEST_F(AutomationObjectTest, Member_SharedByThreads_ServesAll)
{
    constexpr int kCalls = 500;
    Answer(LongValue(5));
    std::array<int, 4> sums{};
    std::vector<std::thread> threads;
    for (int& sum : sums)
    {
        threads.emplace_back(
            [&, object = *m_object]
            {
                for (int call = 0; call < kCalls; ++call)
                {
                    sum += object.GetLong(m_member);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    threads.clear();
    for (const int sum : sums)
    {
        EXPECT_EQ(5 * kCalls, sum);
    }
    EXPECT_LE(m_server.askedNames.size(), sums.size());
    EXPECT_EQ(kCalls * sums.size(), m_server.invocations.size());
}

} // namespace ts::test
