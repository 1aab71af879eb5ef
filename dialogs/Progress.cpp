#include "dialogs/Progress.h"

namespace {
int sNextProgressId = 1;
}

Progress::Progress() : mId(sNextProgressId++) { }

Progress::~Progress() = default;
