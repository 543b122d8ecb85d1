#pragma once

#include <string>

namespace quelmont {

/// Lets the user interface work inside a long loop.
class Pump {
public:
    virtual ~Pump() = default;
    /// Lets waiting keys, mouse events and repaints be handled. Called often: an implementation
    /// decides how often it really enters the event loop.
    virtual void DoEvents() = 0;
};

/// Measures of the screen, taken once at start-up.
class Screen {
public:
    virtual ~Screen() = default;
    /// Twips (1/1440 inch) per device pixel: 15 at 96 pixels an inch.
    virtual float TwipsPerPixelX() const = 0;
    virtual float TwipsPerPixelY() const = 0;
    /// Device pixels per unit in which windows are measured: 2 on a screen of very small pixels.
    virtual double PixelRatio() const { return 1.0; }
    /// Size of the screen in device pixels.
    virtual int PixelsX() const = 0;
    virtual int PixelsY() const = 0;
    /// Size in device pixels of the drawing area of a maximised window.
    virtual int FullScreenX() const = 0;
    virtual int FullScreenY() const = 0;
};

/// The version of all programs: major number, ".", minor number in two digits.
constexpr const char* ProgramVersion = "3.00";

/// Folders and the version. A folder's name ends in a separator.
class Places {
public:
    virtual ~Places() = default;
    /// Where the executable really lies, links followed.
    virtual std::string ProgramFolder() const = 0;
    /// Where settings go when the program's folder cannot be written; empty when there is none.
    virtual std::string SettingsFolder() const = 0;
    /// As ProgramVersion.
    virtual std::string Version() const = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual double SecondsSinceMidnight() const = 0;
    virtual void Beep() = 0;
};

/// Commands of Help::Show.
constexpr int HelpContents = 1;
constexpr int HelpContext = 15;

class Help {
public:
    virtual ~Help() = default;
    /// Opens the help at its contents, or at the page of a dialog's context number.
    virtual void Show(int command, int context) = 0;
};

} // namespace quelmont
