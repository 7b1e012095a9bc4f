#include "tests/outlook_standin/Objects.h"

#include <algorithm>
#include <cguid.h>

namespace
{

using namespace ts::standin;

// Values of OlUserPropertyType.
constexpr long kNumberProperty = 3;
constexpr long kDateTimeProperty = 5;
constexpr long kYesNoProperty = 6;

PropertyValue ValueFor(long type, const VARIANT& value)
{
    switch (type)
    {
    case kNumberProperty:
        return DoubleOf(value);
    case kDateTimeProperty:
        return DateOf(value);
    case kYesNoProperty:
        return BoolOf(value);
    default:
        return TextOf(value);
    }
}

_variant_t FromValue(const UserProperty& property)
{
    if (const auto* const text = std::get_if<std::wstring>(&property.value))
    {
        return FromText(*text);
    }
    if (const auto* const number = std::get_if<double>(&property.value))
    {
        return property.type == kDateTimeProperty ? FromDate(*number) : _variant_t(*number);
    }
    return FromBool(std::get<bool>(property.value));
}

PropertyValue EmptyValue(long type)
{
    switch (type)
    {
    case kNumberProperty:
    case kDateTimeProperty:
        return 0.0;
    case kYesNoProperty:
        return false;
    default:
        return std::wstring();
    }
}

const Kind& UserPropertiesKind()
{
    using Object = UserPropertiesObject;
    static const Kind kind{
        L"UserProperties",
        0x800,
        IID_NULL,
        {{.name = L"Count",
          .get = GetOf<Object, [](Object& self) { return FromLong(static_cast<long>(self.List().size())); }>},
         {.name = L"Item",
          .call = CallOf<Object,
                         [](Object& self, const Arguments& arguments) { return self.Item(arguments[0]); }>},
         {.name = L"Find",
          .call = CallOf<Object, [](Object& self, const Arguments& arguments)
                         { return self.Find(TextOf(arguments[0])); }>},
         {.name = L"Add",
          .call =
              CallOf<Object, [](Object& self, const Arguments& arguments) { return self.Add(arguments); }>}}};
    return kind;
}

const Kind& UserPropertyKind()
{
    using Object = UserPropertyObject;
    static const Kind kind{
        L"UserProperty",
        0x900,
        IID_NULL,
        {{.name = L"Name", .get = GetOf<Object, [](Object& self) { return FromText(self.Get().name); }>},
         {.name = L"Type", .get = GetOf<Object, [](Object& self) { return FromLong(self.Get().type); }>},
         {.name = L"Value",
          .get = GetOf<Object, [](Object& self) { return FromValue(self.Get()); }>,
          .put = PutOf<Object, [](Object& self, const VARIANT& value) { self.SetValue(value); }>}}};
    return kind;
}

} // namespace

ts::standin::UserPropertiesObject::UserPropertiesObject(std::shared_ptr<Server> server, DraftPtr draft)
    : AutomationBase(std::move(server), UserPropertiesKind()), m_draft(std::move(draft))
{
}

_variant_t ts::standin::UserPropertiesObject::Item(const VARIANT& index)
{
    if (index.vt == VT_BSTR)
    {
        const _variant_t found = Find(TextOf(index));
        if (found.pdispVal == nullptr)
        {
            throw CallError(kNotFound, "There is no such user property.");
        }
        return found;
    }
    const UserProperty& property = ElementAt(List(), index);
    return At(static_cast<std::size_t>(&property - List().data()));
}

_variant_t ts::standin::UserPropertiesObject::Find(const std::wstring& name)
{
    const auto& list = List();
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const UserProperty& property) { return property.name == name; });
    if (found != list.end())
    {
        return At(static_cast<std::size_t>(found - list.begin()));
    }
    _variant_t nothing;
    nothing.vt = VT_DISPATCH;
    nothing.pdispVal = nullptr;
    return nothing;
}

_variant_t ts::standin::UserPropertiesObject::Add(const Arguments& arguments)
{
    const std::wstring name = TextOf(arguments[0]);
    const long type = LongOf(arguments[1]);
    if (name.empty() || type < 1)
    {
        throw CallError(E_INVALIDARG, "A user property needs a name and a type.");
    }
    _variant_t present = Find(name);
    if (present.pdispVal != nullptr)
    {
        return present;
    }
    List().push_back({name, type, EmptyValue(type)});
    m_draft->changed = true;
    return At(List().size() - 1);
}

_variant_t ts::standin::UserPropertiesObject::At(std::size_t index)
{
    return FromObject<UserPropertyObject>(GetServer(), m_draft, index);
}

ts::standin::UserPropertyObject::UserPropertyObject(std::shared_ptr<Server> server, DraftPtr draft,
                                                    std::size_t index)
    : AutomationBase(std::move(server), UserPropertyKind()), m_draft(std::move(draft)), m_index(index)
{
}

void ts::standin::UserPropertyObject::SetValue(const VARIANT& value)
{
    Get().value = ValueFor(Get().type, value);
    m_draft->changed = true;
}
