// Linear forms c0 + c1 q1 + c2 q2 + ... of numbered variables: how a displacement hangs on the unknowns.
#pragma once

#include <vector>

namespace zorlan::companion {

struct LinearForm {
  struct Term {
    int variable;
    double factor;
  };
  std::vector<Term> terms;  // few; each variable once, factors not 0
  double constant = 0;

  static LinearForm Of(int variable) { return {{{variable, 1}}, 0}; }

  void AddTerm(int variable, double factor) {
    if (factor == 0) return;
    for (std::size_t t = 0; t < terms.size(); ++t)
      if (terms[t].variable == variable) {
        terms[t].factor += factor;
        if (terms[t].factor == 0) terms.erase(terms.begin() + static_cast<std::ptrdiff_t>(t));
        return;
      }
    terms.push_back({variable, factor});
  }
  void Add(const LinearForm& form, double factor) {
    for (const Term& term : form.terms) AddTerm(term.variable, factor * term.factor);
    constant += factor * form.constant;
  }
  template <class Values>
  double At(const Values& q) const {
    double value = constant;
    for (const Term& term : terms) value += term.factor * q[static_cast<std::size_t>(term.variable)];
    return value;
  }
};

}  // namespace zorlan::companion
