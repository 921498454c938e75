// The transform written as plainly as it can be: one walk over the samples
// per pass, the twiddle recurrence restarted in every block, then the
// bit-reversal counter. OsiFourier must give these numbers to the last bit.
#pragma once

#include "osi/numerics/osicomplex.h"

#include <cmath>
#include <utility>

inline void referenceFourierTransform(OsiComplex* a, int n, bool forward)
{
	const double theta = (forward ? -6.28318530718 : 6.28318530718) / n;
	double s = std::sin(theta);
	double c = std::cos(theta);
	for (int half = n / 2; half >= 1; half /= 2)
	{
		OsiComplex w{1.0, 0.0};
		for (int i = 0; i < n; ++i)
		{
			if (i & half)
			{
				i += half - 1;
				w = OsiComplex{1.0, 0.0};
				continue;
			}
			const int j = i + half;
			const OsiComplex t = a[i] - a[j];
			a[i] = a[i] + a[j];
			a[j] = t * w;
			w = w * OsiComplex{c, s};
		}
		const double oldS = s;
		s = 2 * c * s;
		c = c * c - oldS * oldS;
	}
	int j = 0;
	for (int i = 0; i < n; ++i)
	{
		if (j >= i)
		{
			std::swap(a[i], a[j]);
			if (!forward)
			{
				a[i] = a[i] * (1.0 / n);
				if (j != i)
					a[j] = a[j] * (1.0 / n);
			}
		}
		int m = n / 2;
		while (m >= 1 && j >= m)
		{
			j -= m;
			m /= 2;
		}
		j += m;
	}
}
