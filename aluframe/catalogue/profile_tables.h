#pragma once

#include <span>

namespace aluframe::catalogue {

// The series of standard profiles as published, a row a profile. Lengths in inches.

/// Depth, width, flange, web, fillet, and the published weight in lb/ft.
struct FlangedRow {
  double depth, width, flange, web, fillet, weight;
};

/// Nominal size, outside diameter, walls of schedules 40 and 80.
struct PipeRow {
  const char* size;
  double diameter, wall_40, wall_80;
};

/// Aluminum Association standard I-beams and channels (Aluminum Design Manual, "Section
/// Properties"). 6061 weighs 1.176 lb/ft per in².
std::span<const FlangedRow> standard_i_beams();
std::span<const FlangedRow> standard_channels();

/// ANSI/ASME B36.10 pipe sizes, in which ANSI H35.2 lists aluminium pipe.
std::span<const PipeRow> pipe_sizes();

}  // namespace aluframe::catalogue
