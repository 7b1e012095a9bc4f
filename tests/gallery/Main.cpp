// gallery: shows one of the library's windows over made reminders and saves a picture of it.

#include "module/InterfaceLanguage.h"
#include "platform/mfc/afxwin.h"
#include "tests/gallery/Exhibit.h"
#include "tests/gallery/PngFile.h"
#include "tests/gallery/SampleStore.h"
#include "tests/gallery/Scheme.h"
#include "tests/support/RegistrySandbox.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>
#include <objbase.h>

namespace ts::gallery
{

const std::vector<ExhibitEntry>& AllExhibits()
{
    using enum EcvReminderRecurrenceType;
    static const std::vector<ExhibitEntry> exhibits = {
        {"controls", MakeControlsExhibit},
        {"add-reminder", [](Extent) { return MakeAddReminderExhibit(None); }},
        {"add-reminder-daily", [](Extent) { return MakeAddReminderExhibit(Daily); }},
        {"add-reminder-weekly", [](Extent) { return MakeAddReminderExhibit(Weekly); }},
        {"add-reminder-monthly", [](Extent) { return MakeAddReminderExhibit(Monthly); }},
        {"add-reminder-yearly", [](Extent) { return MakeAddReminderExhibit(Yearly); }},
        {"list", [](Extent extent) { return MakeListExhibit(extent, true); }},
        {"list-unfocused", [](Extent extent) { return MakeListExhibit(extent, false); }},
        {"alert", [](Extent extent) { return MakeAlertExhibit(extent, 1); }},
        {"alert-empty", [](Extent extent) { return MakeAlertExhibit(extent, -1); }},
        {"manage", [](Extent extent) { return MakeManageExhibit(extent, 3); }},
        {"manage-empty", [](Extent extent) { return MakeManageExhibit(extent, -1); }},
        {"list-due-reordered", MakeReorderedListExhibit},
        {"pane-daily", MakeDailyExhibit},
        {"pane-weekly", MakeWeeklyExhibit},
        {"pane-monthly", MakeMonthlyExhibit},
        {"pane-yearly", MakeYearlyExhibit},
        {"delete-recurrence", MakeDeleteExhibit},
    };
    return exhibits;
}

namespace
{

struct Options
{
    std::string name;
    std::string file;
    std::string language = "en";
    Extent extent;
    int rows = Contents().count;
    bool longTexts = false;
    bool highContrast = false;
    bool listNames = false;
};

void Declare(CLI::App& app, Options& options)
{
    app.add_option("NAME", options.name, "What to show");
    app.add_option("FILE", options.file, "The PNG file to write");
    app.add_option("--language", options.language, "en, de or fr")->check(CLI::IsMember({"en", "de", "fr"}));
    app.add_option("--width", options.extent.width, "Of the window, in pixels")->check(CLI::PositiveNumber);
    app.add_option("--height", options.extent.height, "Of the window, in pixels")->check(CLI::PositiveNumber);
    app.add_option("--rows", options.rows, "How many reminders there are")->check(CLI::Range(0, 10'000));
    app.add_flag("--long-texts", options.longTexts, "Subjects and titles that strain the layout");
    app.add_flag("--high-contrast", options.highContrast, "White on black");
    app.add_flag("--list", options.listNames, "Print what there is to show");
    app.footer("Example: gallery list list.png --language de");
}

/// Lets windows draw themselves for as long as a user would notice.
void Settle()
{
    constexpr DWORD kMilliseconds = 400;
    const ULONGLONG end = GetTickCount64() + kMilliseconds;
    while (GetTickCount64() < end)
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        {
            DispatchMessageW(&message);
        }
        constexpr DWORD kBetween = 20;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kBetween, QS_ALLINPUT);
    }
}

int Show(const Options& options)
{
    for (const ExhibitEntry& entry : AllExhibits())
    {
        if (options.name != entry.name)
        {
            continue;
        }
        if (options.highContrast)
        {
            UseHighContrast();
        }
        const std::wstring language(options.language.begin(), options.language.end());
        SetInterfaceLanguage(language.c_str());
        StopClock();
        FillStore({options.language, options.rows, options.longTexts});
        const std::unique_ptr<Exhibit> exhibit = entry.make(options.extent);
        Settle();
        SavePicture(exhibit->GetWindow(), std::wstring(options.file.begin(), options.file.end()));
        return EXIT_SUCCESS;
    }
    std::cerr << "gallery: there is no \"" << options.name << "\"; see --list\n";
    return EXIT_FAILURE;
}

int Run(const Options& options)
{
    if (options.listNames)
    {
        for (const ExhibitEntry& entry : AllExhibits())
        {
            std::cout << entry.name << '\n';
        }
        return EXIT_SUCCESS;
    }
    CoInitialize(nullptr);
    const test::RegistrySandbox sandbox;
    return Show(options);
}

} // namespace
} // namespace ts::gallery

int main(int argc, char** argv)
{
    _putenv("TZ=");
    _tzset();
    CLI::App app("Shows one of the library's windows and saves a picture of it.");
    ts::gallery::Options options;
    ts::gallery::Declare(app, options);
    CLI11_PARSE(app, argc, argv);
    try
    {
        return ts::gallery::Run(options);
    }
    catch (const std::exception& error)
    {
        std::cerr << "gallery: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
