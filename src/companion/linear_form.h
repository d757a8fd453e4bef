// Linear forms c0 + c1 q1 + c2 q2 + ... of numbered variables: how a displacement hangs on the unknowns.
#pragma once

#include <vector>

namespace zorlan::companion {

/// The solution is computed in the widest real of the processor: a chain of a thousand beams loses twelve
/// digits, of which a 64-bit real has sixteen.
using Real = long double;

struct LinearForm {
  struct Term {
    int variable;
    Real factor;
  };
  std::vector<Term> terms;  // few; each variable once, factors not 0
  Real constant = 0;

  static LinearForm Of(int variable) { return {{{variable, 1}}, 0}; }

  void AddTerm(int variable, Real factor) {
    if (factor == 0) return;
    for (std::size_t t = 0; t < terms.size(); ++t)
      if (terms[t].variable == variable) {
        terms[t].factor += factor;
        if (terms[t].factor == 0) terms.erase(terms.begin() + static_cast<std::ptrdiff_t>(t));
        return;
      }
    terms.push_back({variable, factor});
  }
  void Add(const LinearForm& form, Real factor) {
    for (const Term& term : form.terms) AddTerm(term.variable, factor * term.factor);
    constant += factor * form.constant;
  }
  template <class Values>
  Real At(const Values& q) const {
    Real value = constant;
    for (const Term& term : terms) value += term.factor * q[static_cast<std::size_t>(term.variable)];
    return value;
  }
};

}  // namespace zorlan::companion
