SELECT a from t where b ='uno' and c =1
SELECT a from t where b ='due' and c =2;
SELECT a from t where b ="tre" and c =3
SELECT a from t where b ='x' and c =99999999999999999999