// A complex number of two doubles: the sample type of the Fourier transform.
#pragma once

struct OsiComplex
{
	double re;
	double im;

	OsiComplex& operator+=(const OsiComplex& b)
	{
		re += b.re;
		im += b.im;
		return *this;
	}
	OsiComplex& operator-=(const OsiComplex& b)
	{
		re -= b.re;
		im -= b.im;
		return *this;
	}
	OsiComplex& operator*=(const OsiComplex& b)
	{
		const double r = re * b.re - im * b.im;
		im = re * b.im + im * b.re;
		re = r;
		return *this;
	}
	OsiComplex& operator*=(double s)
	{
		re *= s;
		im *= s;
		return *this;
	}
};

inline OsiComplex operator+(OsiComplex a, const OsiComplex& b)
{
	return a += b;
}

inline OsiComplex operator-(OsiComplex a, const OsiComplex& b)
{
	return a -= b;
}

inline OsiComplex operator*(OsiComplex a, const OsiComplex& b)
{
	return a *= b;
}

inline OsiComplex operator*(OsiComplex a, double s)
{
	return a *= s;
}

inline bool operator==(const OsiComplex& a, const OsiComplex& b)
{
	return a.re == b.re && a.im == b.im;
}

inline bool operator!=(const OsiComplex& a, const OsiComplex& b)
{
	return !(a == b);
}
