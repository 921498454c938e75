// The minimiser is MINPACK's lmdif (Levenberg-Marquardt with a forward-
// difference Jacobian) from the cminpack library. The fitter was written for
// lmfit, whose lm_minimize is a C translation of this same routine; lmfit is
// not packaged by the distribution, cminpack is. So lmfit's control values are
// handed to lmdif one for one (epsilon as epsfcn, stepbound as factor,
// maxcall x (n + 1) as maxfev, internal scaling as lmfit does), lmfit's
// residual-function signature is kept for the callers, and lmdif's outcome is
// mapped onto lmfit's status codes.
#include "osi/numerics/osilevenbergmarquardt.h"

#include <cminpack.h>

#include <climits>
#include <memory>
#include <new>

namespace {

struct ResidualCall
{
	OsiLmEvaluate evaluate;
	void* user;
};

// lmdif's callback, forwarding to the lmfit-style residual function.
int residuals(void* p, int m, int, const double* x, double* fvec, int)
{
	const auto* call = static_cast<const ResidualCall*>(p);
	int info = 0;
	call->evaluate(x, m, fvec, call->user, &info);
	return info < 0 ? -1 : 0;
}

template <typename T> std::unique_ptr<T[]> allocate(long long count)
{
	return std::unique_ptr<T[]>(new (std::nothrow) T[count > 0 ? count : 1]);
}

} // namespace

OsiLmStatus osiLmMinimize(int dataCount, int parameterCount, double* parameters,
                          OsiLmEvaluate evaluate, void* user, const OsiLmControl& control)
{
	const long long m = dataCount;
	const long long n = parameterCount;
	// lmdif indexes its Jacobian with int arithmetic.
	if (!parameters || !evaluate || n < 1 || m < n || m * n > INT_MAX)
		return OsiLmImproperInput;
	const long long maxfev = (n + 1) * control.maxcall;
	if (maxfev > INT_MAX)
		return OsiLmImproperInput;

	auto jacobian = allocate<double>(m * n);
	auto mWork = allocate<double>(2 * m); // residuals, then lmdif's wa4
	auto nWork = allocate<double>(5 * n); // diag, qtf, wa1, wa2, wa3
	auto pivots = allocate<int>(n);
	if (!jacobian || !mWork || !nWork || !pivots)
		return OsiLmOutOfMemory;

	ResidualCall call{evaluate, user};
	double* nw = nWork.get();
	int evaluations = 0;
	const int info =
	    lmdif(residuals, &call, dataCount, parameterCount, parameters, mWork.get(), control.ftol,
	          control.xtol, control.gtol, static_cast<int>(maxfev), control.epsilon, nw, 1,
	          control.stepbound, 0, &evaluations, jacobian.get(), dataCount, pivots.get(), nw + n,
	          nw + 2 * n, nw + 3 * n, nw + 4 * n, mWork.get() + m);
	if (info < 0)
		return OsiLmUserBreak;
	return static_cast<OsiLmStatus>(info);
}
