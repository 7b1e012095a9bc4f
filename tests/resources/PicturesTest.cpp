#include "resources/PictureIds.h"
#include "tests/resources/LanguageModule.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <span>
#include <vector>

namespace
{

using namespace ts::test;

constexpr std::size_t kSide = 16;
constexpr std::uint32_t kTransparent = 0x008080;

std::span<const std::byte> ResourceBytes(HMODULE module, unsigned id, LPCWSTR type)
{
    HRSRC const found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    if (found == nullptr)
    {
        return {};
    }
    return {static_cast<const std::byte*>(LockResource(LoadResource(module, found))),
            SizeofResource(module, found)};
}

/// The structure at an offset of the bytes; zeros where they are too short.
template <typename T>
T StructureAt(std::span<const std::byte> bytes, std::size_t offset)
{
    T structure{};
    if (offset + sizeof(T) <= bytes.size())
    {
        std::memcpy(&structure, bytes.data() + offset, sizeof(T));
    }
    return structure;
}

/// The colours of a bitmap of 16 by 16 pixels and 24 bits, as 0xRRGGBB; none when it has another form.
std::vector<std::uint32_t> PixelsOf(const Language& language, unsigned id)
{
    const ModuleHandle module = OpenLanguageModule(language);
    const auto bytes = ResourceBytes(module.get(), id, RT_BITMAP);
    const auto header = StructureAt<BITMAPINFOHEADER>(bytes, 0);
    std::vector<std::uint32_t> pixels;
    if (header.biWidth != kSide || header.biHeight != kSide || header.biBitCount != 24)
    {
        return pixels;
    }
    for (std::size_t index = 0; index < kSide * kSide; ++index)
    {
        const auto pixel = StructureAt<RGBTRIPLE>(bytes, sizeof(header) + index * sizeof(RGBTRIPLE));
        pixels.push_back(
            static_cast<std::uint32_t>(pixel.rgbtRed << 16 | pixel.rgbtGreen << 8 | pixel.rgbtBlue));
    }
    return pixels;
}

class Pictures : public testing::TestWithParam<Language>
{
};

TEST_P(Pictures, RecurrenceBitmaps_BothVariants_HaveTheSameShapeInOneColourEach)
{
    const auto normal = PixelsOf(GetParam(), IDB_RECURRENCE);
    const auto selected = PixelsOf(GetParam(), IDB_RECURRENCE_SELECTED);
    ASSERT_EQ(normal.size(), kSide * kSide);
    ASSERT_EQ(selected.size(), kSide * kSide);
    const auto transparent = std::ranges::count(normal, kTransparent);
    EXPECT_GT(transparent, 100);
    EXPECT_LT(transparent, 220);
    for (std::size_t index = 0; index < normal.size(); ++index)
    {
        EXPECT_EQ(normal[index] == kTransparent, selected[index] == kTransparent) << "pixel " << index;
    }
    const auto isDrawn = [](std::uint32_t colour) { return colour != kTransparent; };
    EXPECT_LT(*std::ranges::find_if(normal, isDrawn), *std::ranges::find_if(selected, isDrawn))
        << "over the highlight colour the image must be the lighter one";
}

TEST_P(Pictures, ReminderIcon_EverySizeThatWindowsAsksFor_IsThereWithItsImage)
{
    const ModuleHandle module = OpenLanguageModule(GetParam());
    const auto group = ResourceBytes(module.get(), IDI_REMINDER, RT_GROUP_ICON);
    const auto count = StructureAt<WORD>(group, 4);
    std::vector<int> sizes;
    for (std::size_t index = 0; index < count; ++index)
    {
        // 14 bytes each: width, height, ..., at 12 the number of the image.
        const std::size_t entry = 6 + 14 * index;
        sizes.push_back(StructureAt<BYTE>(group, entry));
        EXPECT_FALSE(ResourceBytes(module.get(), StructureAt<WORD>(group, entry + 12), RT_ICON).empty());
    }
    // 256 is written as 0.
    EXPECT_EQ(sizes, (std::vector<int>{16, 20, 24, 32, 40, 48, 64, 0}));
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, Pictures, testing::ValuesIn(kLanguages),
                         [](const auto& language) { return std::string(language.param.code); });

} // namespace
