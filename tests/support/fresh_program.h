#pragma once

#include "support/scripted_machine.h"

#include <gtest/gtest.h>

namespace quelmont {

/// A program that has just been started: as long as it lives, the machine is a scripted one, and at
/// both its ends everything that the process keeps (the design, the file numbers, the state of each
/// room that was named by a FreshRoom) is as at the start.
class FreshProgram {
public:
    FreshProgram();
    ~FreshProgram();
    FreshProgram(const FreshProgram&) = delete;
    FreshProgram& operator=(const FreshProgram&) = delete;

    ScriptedMachine machine;
};

/// Names the reset function of a room above core to FreshProgram. A room with state of its own has one,
/// at namespace scope in fresh_ROOM.cpp beside its tests; quelmont_fresh_room links it to every test
/// program that links the room.
class FreshRoom {
public:
    explicit FreshRoom(void (*reset)());
};

/// A fixture with a fresh program: `using Clipping = FreshProgramTest; TEST_F(Clipping, ...)`.
class FreshProgramTest : public ::testing::Test {
protected:
    FreshProgram program;
    ScriptedMachine& machine = program.machine;
};

} // namespace quelmont
