// What must hold of the disk and the log after a fault, whatever it was.
#pragma once

#include "tests/faults/scenarios.h"

namespace tallowbrook {

// The files that are written as a whole, before and after the scenario when nothing goes wrong.
struct Reference {
  Reference(const Scenario& scenario, int rows);
  Texts ownBefore, ownAfter, songsBefore, songsAfter;
};

enum class Harm { OneCall, Killed, FullDisk };
// Expects that nothing is lost, replaced or torn, and that the log tells what became of the files.
void CheckStage(const Stage& stage, const Scenario& scenario, const Reference& reference,
                Harm harm);
// Does the scenario once more, without a fault, and expects that it ends as it should.
void CheckGoesOn(Stage& stage, Form1& form, const Scenario& scenario, const Reference& reference);

}  // namespace tallowbrook
