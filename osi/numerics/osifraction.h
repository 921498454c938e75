// A rational number of two int32s, used for the powers of physical units.
// Sums and differences of fractions are normalised by factorise(); other
// operations leave the terms as they come. Arithmetic wraps around in 32 bits.
#pragma once

#include <cstdint>
#include <type_traits>

class OsiFraction
{
public:
	// value / 1, not normalised.
	OsiFraction(int value = 0) : numerator(value), denominator(1) {}
	// Normalised.
	OsiFraction(int numerator, int denominator);

	OsiFraction& operator+=(const OsiFraction& f);
	OsiFraction& operator-=(const OsiFraction& f);
	OsiFraction& operator*=(const OsiFraction& f);
	OsiFraction& operator/=(const OsiFraction& f);
	OsiFraction& operator+=(int k);
	OsiFraction& operator-=(int k);
	OsiFraction& operator*=(int k);
	// Division by 0 leaves the fraction unchanged.
	OsiFraction& operator/=(int k);
	OsiFraction operator-() const;

	// Cancels by the remainder of the larger term over the smaller while both
	// terms stay whole, then moves the sign to the numerator. This is not a
	// greatest-common-divisor reduction: 2/4 and 9/6 stay as they are, 6/4
	// becomes 3/2. Printed unit powers depend on exactly this rule.
	void factorise();

	double value() const { return static_cast<double>(numerator) / denominator; }

	int32_t numerator;
	int32_t denominator;
};

OsiFraction operator+(const OsiFraction& a, const OsiFraction& b);
OsiFraction operator+(const OsiFraction& a, int k);
OsiFraction operator+(int k, const OsiFraction& a);
OsiFraction operator-(const OsiFraction& a, const OsiFraction& b);
OsiFraction operator-(const OsiFraction& a, int k);
OsiFraction operator-(int k, const OsiFraction& a);
OsiFraction operator*(const OsiFraction& a, const OsiFraction& b);
OsiFraction operator*(const OsiFraction& a, int k);
OsiFraction operator*(int k, const OsiFraction& a);
OsiFraction operator/(const OsiFraction& a, const OsiFraction& b);
// Division by 0 counts as division by 1.
OsiFraction operator/(const OsiFraction& a, int k);
// Deliberately the same as a / k (a's numerator over k times its
// denominator), not k divided by a; existing callers rely on it.
OsiFraction operator/(int k, const OsiFraction& a);

// Comparisons of a fraction with a fraction, an int or a double, in either
// order, by the values as doubles: 2/4 == 1/2.
namespace osi_fraction_detail {

template <typename T> constexpr bool isFraction = std::is_same_v<std::decay_t<T>, OsiFraction>;
template <typename T>
constexpr bool isNumber =
    std::is_same_v<std::decay_t<T>, int> || std::is_same_v<std::decay_t<T>, double>;
template <typename A, typename B>
constexpr bool comparable = (isFraction<A> && (isFraction<B> || isNumber<B>)) ||
                            (isNumber<A> && isFraction<B>);

inline double valueOf(const OsiFraction& f)
{
	return f.value();
}
inline double valueOf(double v)
{
	return v;
}

} // namespace osi_fraction_detail

#define OSI_FRACTION_COMPARISON(op)                                                                \
	template <typename A, typename B,                                                              \
	          typename = std::enable_if_t<osi_fraction_detail::comparable<A, B>>>                  \
	bool operator op(const A& a, const B& b)                                                       \
	{                                                                                              \
		return osi_fraction_detail::valueOf(a) op osi_fraction_detail::valueOf(b);                 \
	}
OSI_FRACTION_COMPARISON(<)
OSI_FRACTION_COMPARISON(<=)
OSI_FRACTION_COMPARISON(>)
OSI_FRACTION_COMPARISON(>=)
OSI_FRACTION_COMPARISON(==)
OSI_FRACTION_COMPARISON(!=)
#undef OSI_FRACTION_COMPARISON
