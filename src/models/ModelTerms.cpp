#include "models/ModelTerms.h"

namespace vardel {

ModelTermsRecord ModelTerms;

}  // namespace vardel
