#include "view/map_hand.h"

#include "core/standard_colors.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/told_changes.h"
#include "mainwindow/view_commands.h"
#include "platform/machine.h"
#include "view/position.h"
#include "view/redraw.h"
#include "view/view_state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace quelmont {

namespace {

/// How much of the globe is shown after one step of the wheel, of what was shown before.
constexpr double WheelFactor = 0.8;
/// Share of the map's width or height by which an arrow key moves it.
constexpr double KeyShare = 0.125;

bool HaveSameTexts(const DesignBounds& a, const DesignBounds& b) {
    return a.GridText == b.GridText && a.UtmText == b.UtmText && a.LobeText == b.LobeText &&
           a.StdParText == b.StdParText;
}

bool AreNear(SurfacePoint a, SurfacePoint b) {
    return std::abs(a.x - b.x) < MapHand::DragPixels && std::abs(a.y - b.y) < MapHand::DragPixels;
}

/// Light on a dark background and dark on a light one.
ColorValue LineColor() {
    constexpr int half = 3 * 255 / 2;
    const ColorValue back = ColorBits(Design.BackColor);
    const auto part = [back](unsigned shift) { return static_cast<int>((back >> shift) & 0xFFU); };
    return part(0) + part(8) + part(16) < half ? Rgb(255, 255, 255) : Rgb(0, 0, 0);
}

void Take(const DesignBounds& bounds) { static_cast<DesignBounds&>(Design) = bounds; }

} // namespace

bool MapHand::IsFree() {
    const auto& picture = MainWindowNow.Picture;
    return IsSwitchedOn(MoveItem) && picture && !IsPlotting() && !Design.TextPending &&
           Design.BoundsProjNum == Design.ProjNum && picture->projNum == Design.ProjNum &&
           HaveSameTexts(picture->bounds, Design);
}

void MapHand::Show() {
    constexpr int most = 256;
    const double aim = ViewNow.movingPictureSeconds;
    const double longDraw = 4.0 * aim;
    const double longest = 3.0 * aim;
    const auto& before = MainWindowNow.Picture;
    if (before && before->whole) {
        const double share = before->seconds < longDraw ? 1.0 : before->seconds / aim;
        nth = static_cast<int>(std::min<double>(std::ceil(share), most));
    }
    const MovingPicture picture = DrawMovingPicture(longest, nth);
    cut = picture == MovingPicture::Cut || picture == MovingPicture::Thinned;
    if (picture == MovingPicture::Cut) {
        nth = std::min(2 * nth, most);
    } else if (picture == MovingPicture::Thinned && Design.PlotSeconds < aim / 3.0) {
        nth = std::max(nth / 2, 1);
    }
}

void MapHand::FinishOther(const char* name) {
    if (changeName != name) {
        Finish();
    }
}

void MapHand::Finish() {
    if (!changeName.empty()) {
        TellChange(changeName, ChangeKind::Bounds);
        changeName.clear();
    }
}

void MapHand::Press(SurfacePoint pixel, bool rectangle) {
    Finish();
    GiveUp(); // of a drag whose release never came
    if (!IsFree()) {
        return;
    }
    const auto from = PointAt(pixel);
    const auto diagonal = PointAt({pixel.x + 1, pixel.y - 1});
    if (from && diagonal) {
        drag.emplace(Dragging{.pressed = pixel,
                              .from = *from,
                              .unitsX = diagonal->x - from->x,
                              .unitsY = diagonal->y - from->y,
                              .move = MapDrag(*from),
                              .rectangle = rectangle});
    }
}

bool MapHand::Drag(SurfacePoint pixel) {
    if (!drag) {
        return false;
    }
    if (!drag->begun && AreNear(pixel, drag->pressed)) {
        return false;
    }
    if (!drag->begun) {
        drag->begun = true;
        Machine().window->SetMousePointer(drag->rectangle ? MousePointer::Cross : MousePointer::Hand);
    }
    if (drag->rectangle) {
        ShowRectangleTo(drag->pressed, pixel);
    } else {
        DragTo(pixel);
    }
    return true;
}

void MapHand::DragTo(SurfacePoint pixel) {
    // In the plane as it was at the press: the map may have got another size in the window since.
    const double across = static_cast<double>(pixel.x - drag->pressed.x) * drag->unitsX;
    const double up = static_cast<double>(drag->pressed.y - pixel.y) * drag->unitsY;
    const DesignBounds before = Design;
    if (!drag->move.To({drag->from.x + across, drag->from.y + up})) {
        Take(before);
    }
    if (!HaveSameTexts(before, Design)) {
        drag->moved = true;
        Show();
    }
}

void MapHand::ShowRectangleTo(SurfacePoint from, SurfacePoint to) {
    const PixelBox box{std::min(from.x, to.x), std::min(from.y, to.y), std::abs(from.x - to.x) + 1,
                       std::abs(from.y - to.y) + 1};
    Machine().window->ShowPreview(box, [&](DrawSurface& surface) {
        const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, 1, LineColor());
        const SurfaceHandle penBefore = surface.SelectObject(pen);
        const std::int32_t right = box.left + box.width - 1;
        const std::int32_t bottom = box.top + box.height - 1;
        surface.Polyline(std::array<SurfacePoint, 5>{{{box.left, box.top},
                                                      {right, box.top},
                                                      {right, bottom},
                                                      {box.left, bottom},
                                                      {box.left, box.top}}});
        surface.SelectObject(penBefore);
        surface.DeleteObject(pen);
    });
}

bool MapHand::Release(SurfacePoint pixel) {
    if (!drag || !drag->begun) {
        drag.reset();
        return false;
    }
    const Dragging ended = *drag;
    if (!ended.rectangle) {
        DragTo(pixel);
        drag.reset();
        Machine().window->SetMousePointer(MousePointer::Normal);
        changeName = "Move";
        Finish();
        return true;
    }
    drag.reset();
    Machine().window->HidePreview();
    Machine().window->SetMousePointer(MousePointer::Normal);
    const auto opposite = PointAt(pixel);
    if (!AreNear(pixel, ended.pressed) && opposite) {
        Shown("Zoom", ShowRectangle(ended.from, *opposite));
        Finish();
    }
    return true;
}

bool MapHand::GiveUp() {
    if (!drag) {
        return false;
    }
    const Dragging ended = *drag;
    drag.reset();
    if (!ended.begun) {
        return false;
    }
    Machine().window->SetMousePointer(MousePointer::Normal);
    if (ended.rectangle) {
        Machine().window->HidePreview();
    } else if (ended.moved) {
        ended.move.Back();
        Show();
    }
    return true;
}

bool MapHand::ZoomOn(int steps) {
    const int sum = zooming->steps + steps;
    const DesignBounds before = Design;
    Take(zooming->first);
    const double factor = std::pow(WheelFactor, sum);
    const bool done = sum == 0 || (zooming->about ? ZoomMap(*zooming->about, factor) : ZoomMap(factor));
    if (!done || HaveSameTexts(before, Design)) {
        Take(before); // a limit is reached
        return false;
    }
    zooming->steps = sum;
    zooming->last = Design;
    return Shown("Zoom", true);
}

bool MapHand::Zoom(std::optional<SurfacePoint> at, int steps) {
    if (drag || steps == 0 || !IsFree()) {
        return false;
    }
    FinishOther("Zoom");
    const bool goesOn = zooming && zooming->at.has_value() == at.has_value() &&
                        (!at || AreNear(*at, *zooming->at)) && HaveSameTexts(zooming->last, Design) &&
                        zooming->last.BoundsProjNum == Design.BoundsProjNum;
    if (!goesOn) {
        zooming = Zooming{Design, Design, at, at ? PointAt(*at) : std::nullopt, 0};
    }
    return ZoomOn(steps);
}

bool MapHand::Wheel(SurfacePoint pixel, int steps) { return Zoom(pixel, steps); }

bool MapHand::Centre(SurfacePoint pixel) {
    GiveUp();
    const auto point = IsFree() ? PointAt(pixel) : std::nullopt;
    if (!point) {
        return false;
    }
    Finish();
    const bool changed = Shown("Center", CentreMap(*point));
    Finish();
    return changed;
}

bool MapHand::Step(double north, double east) {
    FinishOther("Move");
    return Shown("Move", StepMap(north, east));
}

bool MapHand::Shown(const char* name, bool changed) {
    if (changed) {
        changeName = name;
        Show();
    }
    return changed;
}

bool MapHand::Press(Key key) {
    if (drag || !IsFree()) {
        return false;
    }
    switch (key) {
    case Key::Left:
        return Step(0.0, -KeyShare);
    case Key::Up:
        return Step(KeyShare, 0.0);
    case Key::Right:
        return Step(0.0, KeyShare);
    case Key::Down:
        return Step(-KeyShare, 0.0);
    case Key::In:
        return Zoom(std::nullopt, 1);
    case Key::Out:
        return Zoom(std::nullopt, -1);
    case Key::Whole:
        Finish();
        return Shown("Show the Whole", ShowWhole());
    }
    return false;
}

bool MapHand::LacksLines() const {
    const auto& picture = MainWindowNow.Picture;
    return cut && picture && !picture->whole;
}

bool MapHand::FillIn() {
    if (!IsDragging()) {
        RedrawByItself();
    } else if (DrawPicture()) {
        Machine().window->Refresh();
    }
    return MainWindowNow.Picture && MainWindowNow.Picture->whole;
}

} // namespace quelmont
