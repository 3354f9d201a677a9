/* Stands in for a maker's library: tells what it was handed, and is careless with lengths. */
#include <stdio.h>
#include <string.h>

#include "platform/ecrcom/ecrcom.h"

int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length) {
  char detto[200];
  const int length = snprintf(detto, sizeof detto, "ip=%s,file=%s,modo=%d,lunghezza=%d", ip, file, (int)mode,
                              (int)buffer_length);
  memcpy(buffer, detto, (size_t)length);
  buffer[buffer_length] = '\0'; /* one too many */
  ip[0] = '9';
  file[3] = '\0';
  return (int16_t)(mode == 7 ? -12 : 0);
}

void ecr_get_err(int16_t code, char* text) {
  snprintf(text, 82, "%-81d", code);
}

int32_t ecr_conn_xonxoff_ntw(char* ip) {
  return (int32_t)strlen(ip);
}
int16_t ecr_disc_xonxoff_ntw(int32_t handle) {
  return (int16_t)(handle + 1);
}

int16_t ecr_send_xonxoff_ntw(int32_t handle, char* text) {
  text[0] = 'Z';
  return (int16_t)handle;
}

int32_t ecr_recv_xonxoff_ntw(int32_t handle, char* buffer, int32_t length, int32_t timeout) {
  (void)handle;
  memset(buffer, '@', 2);
  return timeout == 30 ? length + 5 : -1;
}

uint32_t ecr_date_decode(int32_t day, int32_t month, int32_t year) {
  return (uint32_t)(day + 100 * month + 10000 * year);
}
uint32_t ecr_dates_decode(int32_t day, int32_t month) {
  return (uint32_t)(day + 100 * month);
}
uint32_t ecr_time_decode(int32_t hours, int32_t minutes, int32_t seconds) {
  return (uint32_t)(seconds + 100 * minutes + 10000 * hours);
}
void ecr_oro_encode(uint32_t value, char* text) {
  snprintf(text, 18, "%08u 01:02:03", value);
}
