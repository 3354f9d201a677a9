/* The communications library of the cash registers: the interface that the program loads at run time.
 * All texts are single-byte (Windows-1252) and end in a NUL unless told otherwise. */
#ifndef GESTIONALE_ECRCOM_H
#define GESTIONALE_ECRCOM_H

#include <stdint.h>

#if defined(_WIN32)
#define ECRCOM_API __declspec(dllexport)
#else
#define ECRCOM_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Modes of ecr_command. */
enum {
  ECR_INFO_MODE = 0,  /* who are you, in which state */
  ECR_OPEN_MODE = 1,  /* open a transfer */
  ECR_CLOSE_MODE = 2, /* close a transfer */
  ECR_RESET_MODE = 3, /* clear the whole programming */
  ECR_CLEAR_INVOICES_MODE = 4,
  ECR_CLEAR_SALES_MODE = 5,
  ECR_SEND_MODE = 6,          /* send `file` from the current folder */
  ECR_FETCH_MODE = 7,         /* fetch `file` into the current folder */
  ECR_FISCAL_CLOSURE_MODE = 8 /* with no transfer open */
};

/* Runs one command on the till at the dotted address `ip`. `file` names the file on both sides in modes 6 and
 * 7 and is empty elsewhere. `buffer` holds `buffer_length` blank-filled characters; the reply is written over
 * their beginning, without a NUL, the blanks behind it stay. Returns 0 or an error code. */
ECRCOM_API int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length);

/* Writes the message of a code, at most 80 characters and a NUL, into `text`. */
ECRCOM_API void ecr_get_err(int16_t code, char* text);

/* Key-sequence connection: a handle of 1 or more, 0 or less is an error code. */
ECRCOM_API int32_t ecr_conn_xonxoff_ntw(char* ip);
ECRCOM_API int16_t ecr_disc_xonxoff_ntw(int32_t handle);
ECRCOM_API int16_t ecr_send_xonxoff_ntw(int32_t handle, char* text);
/* Waits at most `timeout` tenths of a second; returns the number of bytes, 0 or below on failure. */
ECRCOM_API int32_t ecr_recv_xonxoff_ntw(int32_t handle, char* buffer, int32_t length, int32_t timeout);

/* Dates and times of the till, packed into 32 bits; 0 for what is no date. */
ECRCOM_API uint32_t ecr_date_decode(int32_t day, int32_t month, int32_t year);
ECRCOM_API uint32_t ecr_dates_decode(int32_t day, int32_t month);
ECRCOM_API uint32_t ecr_time_decode(int32_t hours, int32_t minutes, int32_t seconds);
/* "dd/mm/yy hh:mm:ss" and a NUL: 18 bytes. */
ECRCOM_API void ecr_oro_encode(uint32_t value, char* text);

#ifdef __cplusplus
}
#endif

#endif
