// The area under data between indices i1 and i2 (both included, either
// order) from x1 to x2: the sum of their y values times the multiplier's
// factor, or without one the x distance per point.
#pragma once

class GuiIntegralCursorMultiplier;
class VGuiGraphData;

double VGuiDataIntegral(const VGuiGraphData& data, int i1, int i2, double x1, double x2,
                        const GuiIntegralCursorMultiplier* multiplier);
