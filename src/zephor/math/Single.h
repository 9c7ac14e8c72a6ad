// Functions of single-precision numbers for the effects' formulas: the same bits for one float and in lanes, on
// every platform and processor. Nothing here calls the C library, whose results differ from one to another.
//
// T is float, Lanes4 or Lanes8. The errors are bounds of the largest found over all magnitudes against double
// precision, to which the tests hold the functions; an ulp is the distance between floats at the true result.
//
//   function      error                       arguments and special values
//   Sqrt          correctly rounded           below 0: NaN
//   Sin, Cos      6.5e-8                      up to 51471 in size; a larger size counts as 0, an infinity gives NaN
//   Tan           1.1e-7 * (1 + tan^2)        as Sin and Cos
//   Atan          1.6 ulp                     all; +-infinity gives +-pi/2
//   Atan2(y, x)   1.6 ulp                     all; 0 if both are 0, of whatever sign
//   Log           0.9 ulp                     0: -infinity; below 0: NaN
//   Exp           1 ulp                       too large: infinity; too small: 0
//   Pow           0.51 ulp                    all, as the C library's but: -0 counts as 0; an infinity below 0 gives
//                                             NaN for powers that are not whole, as every number below 0 does
//   Floor, Truncate, Fraction, Abs: exact     Fraction of an infinity: NaN
//
// A NaN gives NaN, but for Pow(NaN, 0) and Pow(1, NaN), which are 1. Everything must be compiled without the
// contraction of products and sums (-ffp-contract=off).
#pragma once

#include "zephor/math/Angles.h"
#include "zephor/math/Powers.h"
#include "zephor/math/Rounding.h"
