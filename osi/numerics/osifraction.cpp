#include "osi/numerics/osifraction.h"

namespace {

// Two's complement wrap-around into 32 bits, as the arithmetic always had.
int32_t wrap(long long v)
{
	return static_cast<int32_t>(static_cast<uint32_t>(static_cast<unsigned long long>(v)));
}

int32_t product(int32_t a, int32_t b)
{
	return wrap(static_cast<long long>(a) * b);
}

} // namespace

OsiFraction::OsiFraction(int numerator, int denominator)
: numerator(numerator),
  denominator(denominator)
{
	factorise();
}

void OsiFraction::factorise()
{
	if (numerator == 0 || denominator == 0)
		return;
	// 64-bit intermediates: the products and quotients below cannot overflow.
	long long n = numerator;
	long long d = denominator;
	const bool numeratorLarger = (n < 0 ? -n : n) > (d < 0 ? -d : d);
	const long long larger = numeratorLarger ? n : d;
	const long long smaller = numeratorLarger ? d : n;
	const long long r = larger % smaller;
	if (r != 0)
	{
		while ((n * r) % smaller == 0 && (d * r) % smaller == 0)
		{
			n = n * r / smaller;
			d = d * r / smaller;
		}
	}
	if (d < 0)
	{
		n = -n;
		d = -d;
	}
	numerator = wrap(n);
	denominator = wrap(d);
}

OsiFraction& OsiFraction::operator+=(const OsiFraction& f)
{
	numerator = wrap(static_cast<long long>(product(numerator, f.denominator)) +
	                 product(f.numerator, denominator));
	denominator = product(denominator, f.denominator);
	factorise();
	return *this;
}

OsiFraction& OsiFraction::operator-=(const OsiFraction& f)
{
	numerator = wrap(static_cast<long long>(product(numerator, f.denominator)) -
	                 product(f.numerator, denominator));
	denominator = product(denominator, f.denominator);
	factorise();
	return *this;
}

OsiFraction& OsiFraction::operator*=(const OsiFraction& f)
{
	numerator = product(numerator, f.numerator);
	denominator = product(denominator, f.denominator);
	return *this;
}

OsiFraction& OsiFraction::operator/=(const OsiFraction& f)
{
	const int32_t divisorNumerator = f.numerator; // f may be *this
	numerator = product(numerator, f.denominator);
	denominator = product(denominator, divisorNumerator);
	return *this;
}

OsiFraction& OsiFraction::operator+=(int k)
{
	numerator = wrap(static_cast<long long>(numerator) + product(k, denominator));
	return *this;
}

OsiFraction& OsiFraction::operator-=(int k)
{
	numerator = wrap(static_cast<long long>(numerator) - product(k, denominator));
	return *this;
}

OsiFraction& OsiFraction::operator*=(int k)
{
	numerator = product(numerator, k);
	return *this;
}

OsiFraction& OsiFraction::operator/=(int k)
{
	if (k != 0)
		denominator = product(denominator, k);
	return *this;
}

OsiFraction OsiFraction::operator-() const
{
	OsiFraction negated(*this);
	negated.numerator = wrap(-static_cast<long long>(numerator));
	negated.factorise();
	return negated;
}

OsiFraction operator+(const OsiFraction& a, const OsiFraction& b)
{
	return OsiFraction(a) += b;
}

OsiFraction operator+(const OsiFraction& a, int k)
{
	return OsiFraction(a) += k;
}

OsiFraction operator+(int k, const OsiFraction& a)
{
	return OsiFraction(a) += k;
}

OsiFraction operator-(const OsiFraction& a, const OsiFraction& b)
{
	return OsiFraction(a) -= b;
}

OsiFraction operator-(const OsiFraction& a, int k)
{
	return OsiFraction(a) -= k;
}

// k - a over a's denominator, not normalised, like every sum with an int.
OsiFraction operator-(int k, const OsiFraction& a)
{
	OsiFraction difference(a);
	difference.numerator = wrap(static_cast<long long>(product(k, a.denominator)) - a.numerator);
	return difference;
}

OsiFraction operator*(const OsiFraction& a, const OsiFraction& b)
{
	return OsiFraction(a) *= b;
}

OsiFraction operator*(const OsiFraction& a, int k)
{
	return OsiFraction(a) *= k;
}

OsiFraction operator*(int k, const OsiFraction& a)
{
	return OsiFraction(a) *= k;
}

OsiFraction operator/(const OsiFraction& a, const OsiFraction& b)
{
	return OsiFraction(a) /= b;
}

OsiFraction operator/(const OsiFraction& a, int k)
{
	return OsiFraction(a) /= (k == 0 ? 1 : k);
}

OsiFraction operator/(int k, const OsiFraction& a)
{
	return a / k;
}
