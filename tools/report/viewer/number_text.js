// Numbers as texts: as tables of the command have them, and short ones for people.

const EXACT_DIGITS = 100;  // of toExponential; a coordinate's or covariance's binary value ends before

// The first `digits` decimal digits of a positive number and its exponent. A tie goes to the even
// digit, as the command's formatting has it, where toPrecision takes the larger one.
function roundToEven(value, digits) {
  const [mantissa, power] = value.toExponential(EXACT_DIGITS).split("e");
  const all = mantissa.replace(".", "");
  const rest = all.slice(digits);
  const half = "5".padEnd(rest.length, "0");
  let kept = BigInt(all.slice(0, digits));
  if (rest > half || (rest === half && kept % 2n === 1n)) {
    kept += 1n;
  }
  const text = kept.toString();
  return text.length > digits
    ? { digits: text.slice(0, digits), exponent: Number(power) + 1 }
    : { digits: text, exponent: Number(power) };
}

/**
 * The shorter of fixed and scientific notation with at most `digits` significant digits and no
 * trailing zeros: printf's %.{digits}g.
 */
export function generalNumber(value, digits) {
  if (value === 0) {
    return Object.is(value, -0) ? "-0" : "0";
  }
  const sign = value < 0 ? "-" : "";
  const rounded = roundToEven(Math.abs(value), digits);
  const { exponent } = rounded;
  if (exponent < -4 || exponent >= digits) {
    const fraction = rounded.digits.slice(1).replace(/0+$/, "");
    const power = String(Math.abs(exponent)).padStart(2, "0");
    const mantissa = rounded.digits[0] + (fraction ? `.${fraction}` : "");
    return `${sign}${mantissa}e${exponent < 0 ? "-" : "+"}${power}`;
  }
  const whole = exponent < 0 ? "0" : rounded.digits.slice(0, exponent + 1);
  const fraction = exponent < 0
    ? "0".repeat(-exponent - 1) + rounded.digits
    : rounded.digits.slice(exponent + 1);
  const shown = fraction.replace(/0+$/, "");
  return sign + whole + (shown ? `.${shown}` : "");
}

/** A length in pixels for people: about three digits, never finer than a ten-thousandth. */
export function shortPixels(value) {
  if (value === null || value === undefined || !Number.isFinite(value)) {
    return "\u2013";
  }
  const size = Math.abs(value);
  const decimals = size >= 100 ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : size >= 0.1 ? 3 : 4;
  return value.toFixed(decimals).replace("-", "\u2212");
}

/** "1 point", "2 points". */
export function counted(count, one, many = `${one}s`) {
  return `${count} ${count === 1 ? one : many}`;
}
