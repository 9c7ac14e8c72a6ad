// Functions of single-precision numbers for the effects' formulas: the same bits for one float and in lanes, on
// every platform and processor. Nothing here calls the C library, whose results differ from one to another.
//
// T is float, Lanes4 or Lanes8. "ulp" is the distance between floats at the true result. The errors are the
// largest found over dense sweeps against double precision (the tests hold the functions to them).
//
//   function   arguments                  error                        special values
//   Sqrt       all                        correctly rounded            below 0: NaN
//   Sin, Cos   up to 51471 in size        6.5e-8                       infinities: NaN; a larger size counts as 0
//   Tan        up to 51471 in size        3 ulp                        as Sin and Cos
//   Atan       all                        1.5 ulp                      +-infinity: +-pi/2
//   Atan2      all                        1.5 ulp                      both 0 (of any sign): 0
//   Log        all                        1 ulp                        0: -infinity; below 0: NaN
//   Exp        all                        1.2 ulp                      above 88.73: infinity; below -104: 0
//   Pow        all                        0.51 ulp                     as the C library's pow, -0 counting as 0
//   Floor, Fraction, Abs   all            exact                        an infinity's Fraction is NaN
//
// A NaN gives NaN, but for Pow(NaN, 0) and Pow(1, NaN), which are 1. Must be compiled without contraction of
// products and sums (-ffp-contract=off).
#pragma once

#include "zephor/math/Angles.h"
#include "zephor/math/Powers.h"
#include "zephor/math/Rounding.h"
