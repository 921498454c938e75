// Levenberg-Marquardt least squares: the minimiser behind the fitted cubic
// spline, with the control values and outcome codes the fitter is written for.
#pragma once

// Control values of the minimisation; the defaults are the ones the fitter uses.
struct OsiLmControl
{
	double ftol = 1e-14;    // relative reduction of the sum of squares
	double xtol = 1e-14;    // relative change of the parameters
	double gtol = 1e-14;    // orthogonality of residuals and Jacobian columns
	double epsilon = 1e-14; // relative error of the residuals; sets the finite-difference step
	double stepbound = 100; // initial step bound
	int maxcall = 100;      // at most (parameters + 1) x maxcall evaluations
};

// Outcome of a minimisation.
enum OsiLmStatus
{
	OsiLmImproperInput = 0, // nothing was done
	OsiLmSumConverged = 1,  // sum of squares within ftol
	OsiLmParametersConverged = 2,
	OsiLmBothConverged = 3,
	OsiLmOrthogonal = 4,   // residuals orthogonal to the Jacobian within gtol
	OsiLmTooManyCalls = 5, // evaluations exhausted; the best parameters so far are kept
	OsiLmFtolTooSmall = 6,
	OsiLmXtolTooSmall = 7,
	OsiLmGtolTooSmall = 8,
	OsiLmOutOfMemory = 9,
	OsiLmUserBreak = 10 // the residual function asked to stop
};

// Residual function: fills residuals[0 .. dataCount-1] for the trial
// parameters. Setting *info negative stops the minimisation.
typedef void (*OsiLmEvaluate)(const double* parameters, int dataCount, double* residuals,
                              void* user, int* info);

// Refines parameters[0 .. parameterCount-1] in place so that the sum of the
// squared residuals is least. Needs dataCount >= parameterCount >= 1.
OsiLmStatus osiLmMinimize(int dataCount, int parameterCount, double* parameters,
                          OsiLmEvaluate evaluate, void* user,
                          const OsiLmControl& control = OsiLmControl());
