// The units in which forms and pages are measured.
#pragma once

/// Twips of a point of type.
inline constexpr double TWIP_PUNTO = 20;
