// The part of the library of mathematics that the engine calculates with. `npm run ears` bundles it into one file.

import {
  absDependencies, addDependencies, cbrtDependencies, ceilDependencies, cosDependencies, create, divideDependencies, eDependencies, evaluateDependencies,
  expDependencies, floorDependencies, log10Dependencies, logDependencies, modDependencies, multiplyDependencies, numberDependencies, piDependencies,
  powDependencies, roundDependencies, sinDependencies, sqrtDependencies, subtractDependencies, tanDependencies, unaryMinusDependencies, unaryPlusDependencies,
  unitDependencies,
} from "mathjs";

export const mathematics = create({
  absDependencies, addDependencies, cbrtDependencies, ceilDependencies, cosDependencies, divideDependencies, eDependencies, evaluateDependencies,
  expDependencies, floorDependencies, log10Dependencies, logDependencies, modDependencies, multiplyDependencies, numberDependencies, piDependencies,
  powDependencies, roundDependencies, sinDependencies, sqrtDependencies, subtractDependencies, tanDependencies, unaryMinusDependencies, unaryPlusDependencies,
  unitDependencies,
});
