/* What this communications library offers beside the interface that the program loads: for service use and
 * for tests. A maker's own library need not have it. */
#ifndef GESTIONALE_ECRCOM_SERVICE_H
#define GESTIONALE_ECRCOM_SERVICE_H

#include "platform/ecrcom/ecrcom.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The waits of a library freshly loaded, in milliseconds. */
enum { ECR_CONNECT_MS = 2000, ECR_REPLY_MS = 5000 };

/* How long a call waits for the connection, and from then on for the whole of the reply; from 1 to 600000
 * milliseconds each, brought to the nearer bound beyond. Holds for the calls begun afterwards. */
ECRCOM_API void ecr_set_timeout(int32_t connect_ms, int32_t reply_ms);

/* 1 if ecr_recv_xonxoff_ntw would come back at once, with a block or a failure; waits for that from 1 to
 * 60000 milliseconds. 0 if nothing came, or for no handle. */
ECRCOM_API int32_t ecr_ready_xonxoff_ntw(int32_t handle, int32_t wait_ms);

#ifdef __cplusplus
}
#endif

#endif
