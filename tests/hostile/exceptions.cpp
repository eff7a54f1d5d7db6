// The cases the hostile test does not check, each with its reason. Patterns
// are shell patterns over export names; `what` is "null <argument>",
// "negative <argument>" (the negative values of a length), "all null"
// (every pointer null with zero lengths gives -8), "error writes"
// (nothing written on an error) or "address" (the same bits wherever the
// buffers lie).
#include "hostile.h"

namespace hostile {

const Exception kExceptions[] = {
    {"zamsFFTFwd_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsFFTInv_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDFTFwd_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDFTInv_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDFTOutOrdFwd_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDFTOutOrdInv_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsConvert_16s8s_Sfs", "negative len", "the length is an unsigned count: a negative one is a huge vector"},
    {"zamsConvert_64s64f", "negative len", "the length is an unsigned count: a negative one is a huge vector"},
    {"zamsConvert_64f64s_Sfs", "negative len", "the length is an unsigned count: a negative one is a huge vector"},
    {"zamsMaxOrder_*", "all null", "the length is checked before the pointers"},
    {"zamsWinBlackmanOpt_*", "all null", "a length below 4 is refused before the pointers are looked at"},
    {"zamsMaxIndx_*", "null pIndx", "the index is optional: a null pIndx writes only the value"},
    {"zamsMinIndx_*", "null pIndx", "the index is optional: a null pIndx writes only the value"},
    {"zamsFFTInit_[CR]_[36][24][fs]*", "null pSpecBuffer",
     "order 3 builds no table: the floating and 32-bit kinds need the buffer from order 11 on"},
    {"zamsFFTInit_R_16s32s", "null pSpecBuffer", "order 3 builds no table: the buffer is needed from order 11 on"},
    {"zamsFFTInit_*", "error writes",
     "the header is laid into pMemSpec before the flag and pSpecBuffer are checked, its identifier left 0"},
    {"zamsFIR_Direct_32f*", "address",
     "its vector sums start at the first 32-byte-aligned element of the caller's delay line, by design"},
    {"zamsConvCyclic*", "null pSrc1", "the cyclic convolutions check nothing and return 0 for any arguments"},
    {"zamsConvCyclic*", "null pSrc2", "the cyclic convolutions check nothing and return 0 for any arguments"},
    {"zamsConvCyclic*", "null pDst", "the cyclic convolutions check nothing and return 0 for any arguments"},
    {"zamsConvCyclic*", "all null", "the cyclic convolutions check nothing and return 0 for any arguments"},
    {"zamsTriangle_Direct_*", "null pDst", "the parameters and the phase read from pPhase come before the destination"},
    {"zamsTone_Direct_*", "null pDst", "the parameters and the phase read from pPhase come before the destination"},
    {"zamsIIRInit*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsIIRSetDlyLine*", "null pDlyLine", "a null delay line clears the line"},
    {"zamsFIRInit*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsFIRStreamInit*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsFIRSparseInit_32f", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsFIRSetDlyLine*", "null pDlyLine", "a null delay line clears the line"},
    {"zamsDFTGetSize_*", "all null", "the length is checked before the pointers, as the FFT size query checks its order"},
    {"zamsDFTInit_*", "error writes", "the header is laid into pMemSpec before the flag is checked, its identifier left 0"},
    {"zamsDFTInit_*", "null pSpecBuffer", "length 100 builds no table that needs the build buffer"},
    {"zamsDFTOutOrdGetSize_*", "all null", "the length is checked before the pointers, as the FFT size query checks its order"},
    {"zamsDFTOutOrdInit_*", "error writes", "the header is laid into pMemSpec before the flag is checked, its identifier left 0"},
    {"zamsDFTOutOrdInit_*", "null pSpecBuffer", "length 100 builds no table that needs the build buffer"},
    {"zamsDCTFwd_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDCTInv_*", "null pBuffer", "a null work buffer makes the transform allocate its own"},
    {"zamsDCT*GetSize_*", "all null", "the length is checked before the pointers"},
    {"zamsDCT*Init_[36][24]f", "all null", "the float Init checks the length before the pointers, unlike the 16-bit Init"},
    {"zamsDCT*Init_*", "null pSpecBuffer", "the test's length builds no inner table that needs the build buffer"},
    {"zamsFIRMRInit*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsFIRMRStreamInit*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsSortRadixAscend_*", "null pBuffer", "a null work buffer makes the sort allocate its own"},
    {"zamsSortRadixDescend_*", "null pBuffer", "a null work buffer makes the sort allocate its own"},
    {"zamsFIRLMSFree*", "null pState", "freeing a null LMS state is fine and returns 0"},
    {"zamsFIRLMSFree*", "all null", "freeing a null LMS state is fine and returns 0"},
    {"zamsFIRLMSMRFree*", "null pState", "freeing a null LMS state is fine and returns 0"},
    {"zamsFIRLMSMRFree*", "all null", "freeing a null LMS state is fine and returns 0"},
    {"zamsFIRLMSInitAlloc*", "null pTaps", "null taps start at zero"},
    {"zamsFIRLMSInitAlloc*", "null pDlyLine", "a null delay line is a line of zeros"},
    {"zamsFIRLMSMRInitAlloc*", "null pTaps", "null taps start at zero"},
    {"zamsFIRLMSMRInitAlloc*", "null pDlyLine", "a null delay line is a line of zeros"},
};
const size_t kExceptionCount = sizeof(kExceptions) / sizeof(kExceptions[0]);

}  // namespace hostile
