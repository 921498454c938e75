// The harmonics of a fundamental on data: for 2, 3, ... times the
// fundamental's |x|, walking the data away from index i the way |x| grows,
// the point at or beyond the multiple, or the one before when strictly
// nearer; up to count entries in all, the fundamental (already in
// harmonics[0]) first. Returns the number of entries.
#pragma once

#include "vgui/vguigraphpoint.h"

class VGuiGraphData;

int VGuiHarmonicSearch(const VGuiGraphData& data, int i, VGuiGraphPoint* harmonics, int count);
