insert into t (a) select FORMAT(DATE(), 'yyyymmdd'),17,c from a where id=17
insert into t (a) select FORMAT(DATE(), 'yyyymmdd'),18,c from a where id=1 8
Delete  cascade from t where a ='x';
Delete  cascade from t where a ='x'; y
CREATE TABLE x (a TEXT)
UPDATE t SET a = true