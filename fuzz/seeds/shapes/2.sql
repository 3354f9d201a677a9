SELECT a from t where Codice_EAN like '80*'
SELECT a from t where Codice_EAN like '*'
SELECT a from t where d = #05/03/2024# order by 1
SELECT a from t where d = #06/03/2024# order by 2