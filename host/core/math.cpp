#include <cmath>

#include "engine/services.h"

float Math::Abs(float value) { return std::fabs(value); }
float Math::Pow(float base, float exponent) { return std::pow(base, exponent); }
