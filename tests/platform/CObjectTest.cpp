#include "platform/mfc/afx.h"

#include <gtest/gtest.h>
#include <memory>

namespace
{

class Vehicle : public CObject
{
    DECLARE_DYNAMIC(Vehicle)

    double m_weight = 0;
};

class Bicycle : public Vehicle
{
    DECLARE_DYNAMIC(Bicycle)

    explicit Bicycle(bool* destroyed = nullptr) : m_destroyed(destroyed) {}
    Bicycle(const Bicycle&) = delete;
    Bicycle& operator=(const Bicycle&) = delete;
    ~Bicycle() override
    {
        if (m_destroyed != nullptr)
        {
            *m_destroyed = true;
        }
    }

    bool* m_destroyed;
    double m_gears[7]{};
};

IMPLEMENT_DYNAMIC(Vehicle, CObject)
IMPLEMENT_DYNAMIC(Bicycle, Vehicle)

/// A class without a record of its own.
class Plain : public Vehicle
{
};

} // namespace

static_assert(!std::is_copy_constructible_v<Vehicle>);
static_assert(!std::is_copy_assignable_v<Vehicle>);

TEST(CObjectTest, RuntimeClass_OfEachClass_TellsItsNameAndSize)
{
    EXPECT_STREQ("CObject", RUNTIME_CLASS(CObject)->m_lpszClassName);
    EXPECT_EQ(sizeof(CObject), RUNTIME_CLASS(CObject)->m_nObjectSize);
    EXPECT_STREQ("Vehicle", RUNTIME_CLASS(Vehicle)->m_lpszClassName);
    EXPECT_EQ(sizeof(Vehicle), RUNTIME_CLASS(Vehicle)->m_nObjectSize);
    EXPECT_STREQ("Bicycle", RUNTIME_CLASS(Bicycle)->m_lpszClassName);
    EXPECT_EQ(sizeof(Bicycle), RUNTIME_CLASS(Bicycle)->m_nObjectSize);
}

TEST(CObjectTest, RuntimeClass_OfADerivedClass_LeadsToItsBases)
{
    EXPECT_EQ(RUNTIME_CLASS(Vehicle), RUNTIME_CLASS(Bicycle)->m_pBaseClass);
    EXPECT_EQ(RUNTIME_CLASS(CObject), RUNTIME_CLASS(Vehicle)->m_pBaseClass);
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CObject)->m_pBaseClass);
}

TEST(CObjectTest, GetRuntimeClass_ThroughTheBase_IsThatOfTheObject)
{
    const Vehicle vehicle;
    const Bicycle bicycle;
    const Plain plain;
    const CObject* const objects[] = {&vehicle, &bicycle, &plain};
    EXPECT_EQ(RUNTIME_CLASS(Vehicle), objects[0]->GetRuntimeClass());
    EXPECT_EQ(RUNTIME_CLASS(Bicycle), objects[1]->GetRuntimeClass());
    EXPECT_EQ(RUNTIME_CLASS(Vehicle), objects[2]->GetRuntimeClass()) << "of the nearest base that has one";
    EXPECT_EQ(RUNTIME_CLASS(CObject), objects[0]->CObject::GetRuntimeClass());
}

TEST(CObjectTest, Destruction_ThroughTheBase_IsThatOfTheObject)
{
    bool destroyed = false;
    std::unique_ptr<CObject> object = std::make_unique<Bicycle>(&destroyed);
    EXPECT_FALSE(destroyed);
    object.reset();
    EXPECT_TRUE(destroyed);
}
