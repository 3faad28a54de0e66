#include "run_cert_approver.h"

int main(int argc, char** argv)
{
    return cert_approver::RunCertApprover(argc, argv);
}
