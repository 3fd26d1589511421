#pragma once

/// Two factors in one float of a load case: `Gamu` with `Gama`, `Psi1` with `Psi1s`.
///
/// The field is the main value rounded to three decimals plus a ten-thousandth of the minor value. Every step
/// has a fixed precision, so that the bits in the database are the same as those of the package's other
/// modules. No pair promises to come back as it went in: (0.251, 0) comes back as 0.25 and 10.
///
/// Truncation is towards zero, so -1.0 packs to -0.999. Any bit pattern may come in; not-a-number and
/// infinities run through the arithmetic.

struct LCM_FactorPair
{
    float main;
    float minor;
};

/// The main value as it goes into a field: rounded to three decimals. The undefined value stays undefined.
float lcm_round_main(float main);

/// A field with the minor value added to its main value.
float lcm_add_minor(float field, float minor);

/// Packs a pair. A main value that becomes the undefined value drops the minor one.
float lcm_pack_pair(float main, float minor);

/// Takes a field apart. The minor value comes in steps of 0.002. The undefined value gives the undefined
/// value and 0.
LCM_FactorPair lcm_unpack_pair(float field);
